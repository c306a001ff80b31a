#include "camjob/check/CheckText.h"

#include "camjob/check/CheckInput.h"
#include "camjob/check/FindingText.h"
#include "camjob/console/ReportText.h"
#include "camjob/console/ShownText.h"
#include "camjob/console/TextTable.h"

#include <algorithm>
#include <set>
#include <utility>

namespace camjob {

namespace {

ZetString Labelled(const wchar_t* label, const ZetString& value) {
    return Line(ZetString::format(L"%-10s %s", label, value));
}

/// What the job makes of the member; "" without a job.
ZetString JudgementLine(const std::optional<JudgementReport>& judgement) {
    if (!judgement)
        return {};
    const wchar_t* verdict = judgement->isValid ? L"valid" : L"invalid";
    return Labelled(L"type", judgement->memberType) +
           Labelled(L"judgement", judgement->isSkipped ? L"left out of the job's runs" : verdict);
}

ZetString HeaderLines(const ZetNCHeaderData& header) {
    ZetString length = Number(header.length) + L" mm";
    if (header.sawLength != 0.0)
        length += L", saw length " + Number(header.sawLength) + L" mm";
    return Labelled(L"mark", header.mark) + Labelled(L"drawing", header.drawingNumber) +
           Labelled(L"profile", header.profileName + L", code " + header.profileCode) +
           Labelled(L"quantity", ZetString::format(L"%d", header.quantity)) +
           Labelled(L"length", length) +
           Labelled(L"section",
                    L"height " + Number(header.height) + L", width " + Number(header.width) +
                        L", thickness " + Number(header.thickness) + L" mm");
}

ZetString NoteLines(const std::vector<dstv::NcNote>& notes) {
    ZetString lines;
    for (const dstv::NcNote& note : notes) {
        const bool isWarning = note.severity == dstv::NcNote::Severity::kWarning;
        lines += Line(ZetString::format(
            L"%s line %d: %s", isWarning ? L"warning" : L"note   ", note.line, note.text));
    }
    return lines;
}

ZetString SizeText(const HoleReport& hole) {
    return hole.length ? Number(*hole.length) + L" x " + Number(hole.size) : Number(hole.size);
}

/// With the codes of the job's rules, when there is a job.
ZetString HoleTable(const std::vector<HoleReport>& holes, bool hasCodes, const Terminal& terminal) {
    using Align = TextTable::Align;
    if (holes.empty())
        return Line(L"no holes");
    std::vector<TextTable::Column> columns = {
        {L"line",    Align::kRight},
        {L"face",    Align::kLeft },
        {L"X mm",    Align::kRight},
        {L"Y mm",    Align::kRight},
        {L"size mm", Align::kRight},
        {L"shape",   Align::kLeft },
    };
    if (hasCodes)
        columns.push_back({L"code", Align::kLeft});
    columns.push_back({L"remarks", Align::kLeft});
    TextTable table(std::move(columns));
    for (const HoleReport& hole : holes) {
        std::vector<ZetString> cells = {ZetString::format(L"%d", hole.line),
                                        hole.face,
                                        Number(hole.x),
                                        Number(hole.y),
                                        SizeText(hole),
                                        hole.shape};
        if (hasCodes)
            cells.push_back(hole.code);
        cells.push_back(Joined(hole.remarks, L", "));
        table.AddRow(std::move(cells));
    }
    return table.Format(terminal);
}

ZetString SizeText(const NotchReport& notch) {
    return notch.length ? Number(*notch.length) + L" x " + Number(*notch.width) : L"-";
}

std::vector<ZetString> Remarks(const NotchReport& notch) {
    std::vector<ZetString> remarks;
    if (notch.isDuplicate)
        remarks.emplace_back(L"set aside: duplicate");
    if (notch.isTurned)
        remarks.emplace_back(L"turned");
    if (!notch.length)
        remarks.push_back(Count(notch.corners, L"corner"));
    if (notch.holeLine)
        remarks.push_back(ZetString::format(L"hole of line %d", *notch.holeLine));
    return remarks;
}

ZetString NotchTable(const std::vector<NotchReport>& notches, const Terminal& terminal) {
    using Align = TextTable::Align;
    TextTable table({
        {L"notch",   Align::kLeft },
        {L"face",    Align::kLeft },
        {L"X mm",    Align::kRight},
        {L"Y mm",    Align::kRight},
        {L"size mm", Align::kRight},
        {L"shape",   Align::kLeft },
        {L"status",  Align::kLeft },
        {L"remarks", Align::kLeft }
    });
    for (const NotchReport& notch : notches)
        table.AddRow({notch.isInternal ? L"internal" : L"external",
                      notch.face,
                      Number(notch.x),
                      Number(notch.y),
                      SizeText(notch),
                      notch.shape,
                      notch.status,
                      Joined(Remarks(notch), L", ")});
    return table.Format(terminal);
}

ZetString CutTable(const std::vector<CutReport>& cuts, const Terminal& terminal) {
    using Align = TextTable::Align;
    TextTable table({
        {L"line",  Align::kRight},
        {L"cut",   Align::kLeft },
        {L"face",  Align::kLeft },
        {L"side",  Align::kLeft },
        {L"at mm", Align::kRight},
        {L"angle", Align::kRight},
        {L"code",  Align::kLeft }
    });
    for (const CutReport& cut : cuts)
        table.AddRow({ZetString::format(L"%d", cut.line),
                      cut.kind,
                      cut.face,
                      cut.side,
                      Number(cut.at),
                      cut.angle ? Number(*cut.angle) : L"-",
                      cut.code});
    return table.Format(terminal);
}

ZetString FindingLine(const plugin::Finding& finding, long line, const Terminal& terminal) {
    const ZetString place = line > 0 ? ZetString::format(L"line %d: ", line) : L"";
    return Toned(Line((finding.IsError() ? L"error   " : L"warning ") + place + Describe(finding)),
                 finding.IsError() ? Tone::kError : Tone::kWarning,
                 terminal.hasColour);
}

/// Errors first, each by its line; then what can be done.
ZetString FindingLines(const CheckReport& report, const Terminal& terminal) {
    const auto lineOf = [&](const plugin::Finding& finding) {
        return LineOf(finding, report.headerPlaces);
    };
    const auto keyOf = [&](const plugin::Finding& finding) {
        return std::pair(!finding.IsError(), lineOf(finding));
    };
    std::vector<plugin::Finding> findings = report.findings;
    std::stable_sort(findings.begin(), findings.end(), [&](const auto& a, const auto& b) {
        return keyOf(a) < keyOf(b);
    });
    ZetString lines;
    std::set<int> types;
    for (const plugin::Finding& finding : findings)
        if (finding.IsPrinted()) {
            lines += FindingLine(finding, lineOf(finding), terminal);
            types.insert(finding.type);
        }
    // Without a job nothing can be changed but the model.
    return report.judgement ? lines + RemedyLines(types) : lines;
}

ZetString ExternalContours(const std::vector<long>& points) {
    std::vector<ZetString> counts;
    for (const long count : points)
        counts.push_back(ZetString::format(L"%d", count));
    return Count(static_cast<long>(points.size()), L"external contour") + L" (" +
           Joined(counts, L" + ") + L" points)";
}

ZetString FaceLine(const FaceReport& face) {
    std::vector<ZetString> parts;
    if (!face.externalPoints.empty())
        parts.push_back(ExternalContours(face.externalPoints));
    const auto add = [&parts](long count, const wchar_t* noun) {
        if (count > 0)
            parts.push_back(Count(count, noun));
    };
    add(face.internalContours, L"internal contour");
    add(face.marks, L"mark");
    add(face.numerations, L"numeration");
    return Line(ZetString::format(L"%-14s %s", face.face, Joined(parts, L", ")));
}

ZetString FaceLines(const std::vector<FaceReport>& faces) {
    ZetString lines;
    for (const FaceReport& face : faces)
        lines += FaceLine(face);
    return lines;
}

/// "22 round, 4 slot"; "" without holes.
ZetString ShapeCounts(const CheckSummary& summary) {
    std::vector<ZetString> shapes;
    for (const auto& [shape, count] : summary.holesByShape)
        shapes.push_back(ZetString::format(L"%d %s", count, shape));
    return Joined(shapes, L", ");
}

ZetString SetAsideCount(const CheckSummary& summary) {
    if (summary.holesSetAside == 0)
        return {};
    return ZetString::format(L"; %d set aside", summary.holesSetAside);
}

/// What is left to say after the only file.
ZetString ClosingLine(const CheckSummary& summary) {
    if (summary.filesRead == 0)
        return L"1 file refused\n";
    const ZetString shapes = ShapeCounts(summary);
    return L"1 file read: " + Count(summary.holes, L"hole") +
           (shapes.isEmpty() ? ZetString() : L" (" + shapes + L")") + SetAsideCount(summary) +
           L", " + CountOf(summary.notches, L"notch", L"notches") + L", " +
           Count(summary.notes, L"note") + L", " + Count(summary.warnings, L"warning") + L"\n";
}

ZetString CountLines(const CheckSummary& summary) {
    const ZetString shapes = ShapeCounts(summary);
    const auto line = [](const wchar_t* label, long count, const ZetString& more = {}) {
        return Labelled(label, ZetString::format(L"%d%s", count, more));
    };
    return L"summary\n" + line(L"files read", summary.filesRead) +
           line(L"refused", summary.filesRefused) + line(L"invalid", summary.invalidMembers) +
           line(L"holes",
                summary.holes,
                shapes.isEmpty() ? shapes : L": " + shapes + SetAsideCount(summary)) +
           line(L"notches", summary.notches) + line(L"notes", summary.notes) +
           line(L"warnings", summary.warnings);
}

ZetString RefusedLines(const CheckSummary& summary) {
    ZetString lines;
    for (const dstv::NcError& error : summary.errors)
        lines += Line(OneLine(error.describe()));
    lines += MoreLine(summary.filesRefused - static_cast<long>(summary.errors.size()));
    return lines.isEmpty() ? lines : L"refused files\n" + lines;
}

}  // namespace

void CheckTextWriter::AddRead(const CheckReport& report) {
    const Terminal terminal = m_out.GetTerminal();
    const ZetString text =
        Paragraphs({OneLine(report.file) + L"\n" + HeaderLines(report.header) +
                        JudgementLine(report.judgement),
                    NoteLines(report.notes),
                    HoleTable(report.holes, report.judgement.has_value(), terminal),
                    NotchTable(report.notches, terminal),
                    CutTable(report.cuts, terminal),
                    FindingLines(report, terminal),
                    FaceLines(report.faces)});
    WriteText(m_out, text + L"\n");
}

void CheckTextWriter::AddRefused(const dstv::NcError& error) {
    m_out.Flush();
    WriteError(error, m_err);
    m_err.Flush();
}

void CheckTextWriter::End(const CheckSummary& summary) {
    const bool isOnlyFile = summary.filesRead + summary.filesRefused == 1;
    WriteText(m_out,
              isOnlyFile ? ClosingLine(summary)
                         : Paragraphs({CountLines(summary), RefusedLines(summary)}));
}

}  // namespace camjob
