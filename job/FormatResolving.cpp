#include "job/FormatResolving.h"

#include "codepages/CodePages.h"
#include "job/FormatFile.h"
#include "job/LineTemplates.h"
#include "job/MessageTexts.h"
#include "job/formats/TextEncoding.h"

#include <algorithm>
#include <utility>

namespace job {

namespace {

/// Places have no more that tell anything.
constexpr int kMostRepeatDecimals = 9;

bool Shows(const TemplatePiece& piece, FormatField field) {
    return piece.field != nullptr && piece.field->field == field;
}

/// What the lines of one thing show.
bool Shows(const FormatLine& line, FormatField field) {
    return std::any_of(line.lines.begin(), line.lines.end(), [&](const LineTemplate& pieces) {
        return std::any_of(pieces.begin(), pieces.end(), [&](const TemplatePiece& piece) {
            return Shows(piece, field);
        });
    });
}

/// Written with as many decimals as its precision says.
bool IsFixed(const FieldSpec& spec) {
    return spec.type == 0 || spec.type == 'f' || spec.type == 'F';
}

bool IsHole(FormatPart part) {
    return part >= FormatPart::kHole && part <= FormatPart::kRectangle;
}

bool HasPoints(FormatPart part) {
    return part == FormatPart::kOutline || part == FormatPart::kMark;
}

bool IsMark(FormatPart part) {
    return part == FormatPart::kMark || part == FormatPart::kText;
}

bool IsOfFile(FormatPart part) {
    return part == FormatPart::kFileStart || part == FormatPart::kFileEnd;
}

/// It takes all that comes to it.
bool TakesAll(const FormatLine& line) {
    return line.faces.empty() && line.codes.empty() && line.groups.empty() && !line.repeat;
}

class FormatMaker {
  public:
    FormatMaker(const FormatDocument& document, JobFaults& faults)
        : m_document(document), m_faults(faults) {}

    MachineFormat Make(std::string_view stem) {
        const FormatTable& table = m_document.format;
        m_format.name = table.name.isEmpty() ? ZetString::fromUtf8(stem) : table.name;
        m_format.order = table.order;
        m_format.areColumnsFixed = table.areColumnsFixed;
        m_format.numbers = m_document.numbers;
        TakeTexts();
        TakeNames();
        for (const LineTable& line : m_document.lines)
            TakeLine(line);
        return std::move(m_format);
    }

  private:
    void Require(bool isGood, Position at, const std::string& text) {
        if (!isGood)
            m_faults.Add(at, text);
    }

    void TakeTexts() {
        const TextsTable& table = m_document.texts;
        m_format.texts = table;
        m_format.texts.page = codepages::FindCodePage(NameOf(table.encoding));
        m_format.lineEnd = table.lineEnds == LineEnds::kCrLf ? "\r\n" : "\n";
        Require(table.encoding != NcEncoding::kAuto,
                table.at,
                "\"encoding\" in [texts]: \"auto\" is for reading; name the one to write");
        Require(table.longest > 0 || table.tooLong == TooLong::kRefuse,
                table.at,
                "\"too_long\" in [texts] needs \"longest\"");
    }

    void TakeNames() {
        const FormatTable& table = m_document.format;
        m_format.faces.otherwise = table.otherFaces;
        m_format.tools.otherwise = table.otherTools;
        m_format.profiles = {m_document.profiles, table.otherProfiles};
        for (const FaceTable& face : m_document.faces) {
            const auto isSame = [&](const FaceName& row) { return row.face == face.face; };
            const auto& rows = m_format.faces.rows;
            Require(!face.isSound || std::none_of(rows.begin(), rows.end(), isSame),
                    face.at,
                    "the face " + Quoted(NameOf(face.face)) + " stands here a second time");
            RequireEncoded(face.name.value_or(ZetString()), face.at, "\"name\" in [[face]]");
            m_format.faces.rows.push_back(face);
        }
        for (const ToolTable& tool : m_document.tools) {
            Require(IsOperation(tool.kind),
                    tool.at,
                    "\"kind\" in [[tool]] must be an operation, not " + Quoted(NameOf(tool.kind)));
            RequireEncoded(tool.number, tool.at, "\"number\" in [[tool]]");
            m_format.tools.rows.push_back(tool);
        }
        Require(table.order != OperationOrder::kByTool || !m_document.tools.empty(),
                table.at,
                "\"order\" by tool needs [[tool]]");
        RequireRows(m_document.faces.empty(), table.otherFaces, "other_faces", "[[face]]");
        RequireRows(m_document.tools.empty(), table.otherTools, "other_tools", "[[tool]]");
        RequireRows(
            m_document.profiles.empty(), table.otherProfiles, "other_profiles", "[[profile]]");
    }

    void RequireEncoded(const ZetString& text, Position at, const std::string& what) {
        Require(InEncoding(text.view(), m_format.texts.page).has_value(),
                at,
                "the encoding has not all of " + what);
    }

    void RequireRows(bool isEmpty,
                     const std::optional<ZetString>& otherwise,
                     const char* key,
                     const char* table) {
        Require(!isEmpty || !otherwise,
                m_document.format.at,
                Quoted(key) + " needs at least one " + table);
    }

    void TakeLine(const LineTable& table) {
        if (!table.isSound)
            return;
        CheckConditions(table);
        Require(
            table.texts.has_value(), table.at, "\"text\" is missing in [[line]]; [] is no line");
        for (const FormatPart part : table.parts) {
            const std::size_t faults = m_faults.GetCount();
            FormatLine line = MakeLine(table, part);
            if (m_faults.GetCount() > faults)
                return;
            CheckLine(table, part, line);
            if (m_faults.GetCount() > faults)
                return;
            m_format.lines[static_cast<std::size_t>(part)].push_back(std::move(line));
        }
    }

    FormatLine MakeLine(const LineTable& table, FormatPart part) {
        FormatLine line{{},
                        table.faces,
                        table.codes,
                        table.groups,
                        table.repeat,
                        table.least.value_or(FormatLine().least)};
        for (const PlacedText& text : table.texts.value_or(std::vector<PlacedText>())) {
            auto pieces = ReadLineTemplate(text.text, part, m_format.texts.page);
            if (const auto* fault = std::get_if<std::string>(&pieces))
                m_faults.Add(text.at, AsPart(part) + *fault);
            else
                line.lines.push_back(std::get<LineTemplate>(std::move(pieces)));
        }
        TakeRepeatDecimals(table, part, line);
        const std::optional<std::string> between =
            InEncoding(table.between.value_or(L" ").view(), m_format.texts.page);
        Require(between.has_value(), table.at, "the encoding has not all of \"between\"");
        line.between = between.value_or("");
        return line;
    }

    static std::string AsPart(FormatPart part) { return std::string(NameOf(part)) + ": "; }

    /// Those that the place along the axis and the pitch are really written with.
    void TakeRepeatDecimals(const LineTable& table, FormatPart part, FormatLine& line) {
        if (!line.repeat)
            return;
        const FormatField place = line.repeat == RepeatAxis::kY ? FormatField::kY : FormatField::kX;
        line.pitchDecimals = kMostRepeatDecimals;
        for (const LineTemplate& pieces : line.lines)
            for (const TemplatePiece& piece : pieces) {
                const bool isPitch = Shows(piece, FormatField::kPitch);
                if (!isPitch && !Shows(piece, place))
                    continue;
                Require(IsFixed(piece.spec),
                        table.at,
                        AsPart(part) + "{" + piece.field->name +
                            "} of a line with \"repeat\" has decimals, not e or g");
                const int decimals = DecimalsOf(piece.spec);
                line.repeatDecimals = std::max(line.repeatDecimals, decimals);
                if (isPitch)
                    line.pitchDecimals = std::min(line.pitchDecimals, decimals);
            }
    }

    int DecimalsOf(const FieldSpec& spec) const {
        return std::min(
            spec.precision >= 0 ? spec.precision : static_cast<int>(m_format.numbers.decimals),
            kMostRepeatDecimals);
    }

    void CheckConditions(const LineTable& table) {
        const auto areAll = [&](auto fits) {
            return std::all_of(table.parts.begin(), table.parts.end(), fits);
        };
        Require(areAll(IsOperation) || (table.faces.empty() && table.codes.empty()),
                table.at,
                "\"faces\" and \"codes\" are for lines of operations");
        Require(areAll([](FormatPart part) { return part != FormatPart::kMitre; }) ||
                    (table.faces.empty() && table.codes.empty()),
                table.at,
                "\"faces\" and \"codes\" are not for mitre: it has neither");
        Require(areAll([](FormatPart part) { return !IsMark(part); }) || table.codes.empty(),
                table.at,
                "\"codes\" is not for mark and text: they have none");
        Require(areAll([](FormatPart part) { return !IsOfFile(part); }) || table.groups.empty(),
                table.at,
                "\"groups\" cannot stand with file_start and file_end");
        Require(areAll(IsHole) || !table.repeat,
                table.at,
                "\"repeat\" is for hole, countersunk, slot and rectangle");
        Require(table.repeat || !table.least, table.at, "\"least\" needs \"repeat\"");
        Require(
            areAll([](FormatPart part) { return part == FormatPart::kPoint; }) || !table.between,
            table.at,
            "\"between\" is for the line of point");
    }

    void CheckLine(const LineTable& table, FormatPart part, const FormatLine& line) {
        const std::vector<FormatLine>& earlier = m_format.LinesFor(part);
        Require(std::none_of(earlier.begin(), earlier.end(), TakesAll),
                table.at,
                "no " + std::string(NameOf(part)) +
                    " comes to this line: an earlier one without conditions takes all");
        Require(!Shows(line, FormatField::kTool) || !m_document.tools.empty(),
                table.at,
                AsPart(part) + "{tool} needs [[tool]]");
        CheckHeader(table, line);
        CheckRepeat(table, part, line);
        CheckPoints(table, part, line);
    }

    void CheckHeader(const LineTable& table, const FormatLine& line) {
        for (const LineTemplate& pieces : line.lines)
            for (const TemplatePiece& piece : pieces)
                Require(piece.field == nullptr || piece.field->field != FormatField::kHeader ||
                            (pieces.size() == 1 && piece.text.empty()),
                        table.at,
                        "{header} stands alone in its line: it is any number of lines");
    }

    void CheckRepeat(const LineTable& table, FormatPart part, const FormatLine& line) {
        const bool hasCount = Shows(line, FormatField::kCount);
        const bool hasPitch = Shows(line, FormatField::kPitch);
        if (table.repeat)
            Require(hasCount && hasPitch && Shows(line, FormatField::kX) &&
                        Shows(line, FormatField::kY),
                    table.at,
                    AsPart(part) + "a line with \"repeat\" needs {x}, {y}, {count} and {pitch}");
        else
            Require(!hasPitch && (!hasCount || HasPoints(part)),
                    table.at,
                    AsPart(part) + "{count} and {pitch} need \"repeat\"");
    }

    void CheckPoints(const LineTable& table, FormatPart part, const FormatLine& line) {
        const auto isForPoints = [](const LineTable& each) {
            return !each.isSound ||
                   std::find(each.parts.begin(), each.parts.end(), FormatPart::kPoint) !=
                       each.parts.end();
        };
        const auto hasSeveralTexts = [&](const LineTable& each) {
            return each.isSound && isForPoints(each) && each.texts && each.texts->size() > 1;
        };
        const auto& lines = m_document.lines;
        const bool hasPointLine = std::any_of(lines.begin(), lines.end(), isForPoints);
        const bool isTold = !HasPoints(part) || line.lines.empty() ||
                            Shows(line, FormatField::kCode) || hasPointLine;
        Require(isTold,
                table.at,
                AsPart(part) + "its points are nowhere: there is no line for \"point\"");
        Require(!isTold || hasPointLine || !Shows(line, FormatField::kPoints),
                table.at,
                AsPart(part) + "{points} needs a line for \"point\"");
        Require(!Shows(line, FormatField::kPoints) ||
                    std::none_of(lines.begin(), lines.end(), hasSeveralTexts),
                table.at,
                AsPart(part) + "{points} stands in one line, so \"point\" has one text");
    }

    const FormatDocument& m_document;
    JobFaults& m_faults;
    MachineFormat m_format;
};

}  // namespace

MachineFormat ResolveFormat(const FormatDocument& document,
                            std::string_view stem,
                            JobFaults& faults) {
    return FormatMaker(document, faults).Make(stem);
}

}  // namespace job
