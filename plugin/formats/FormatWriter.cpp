#include "plugin/formats/FormatWriter.h"

#include "plugin/formats/LineWriter.h"
#include "plugin/formats/RepeatedOperations.h"
#include "plugin/formats/ValueText.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <numeric>
#include <tuple>
#include <utility>

namespace plugin {

namespace {

/// Lines that show the points of an outline or mark themselves.
bool ShowsPoints(const job::FormatLine& line) {
    return std::any_of(line.lines.begin(), line.lines.end(), [](const job::LineTemplate& pieces) {
        return std::any_of(pieces.begin(), pieces.end(), [](const job::TemplatePiece& piece) {
            return piece.field != nullptr && piece.field->field == job::FormatField::kPoints;
        });
    });
}

}  // namespace

/// Writes one member.
class FormatWriter::MemberText {
  public:
    MemberText(const FormatWriter& writer,
               const MachineMember& member,
               const FormatTexts& texts,
               std::vector<FormatFault>& faults)
        : m_format(writer.m_format),
          m_values(writer.m_values),
          m_member(member),
          m_faults(faults),
          m_order(MakeOrder()),
          m_isTaken(m_order.size()),
          m_isSilent(m_order.size()) {
        m_subject.texts = &texts;
        m_subject.group = &member.group;
        m_subject.member = &member;
    }

    FormattedMember Write() {
        LineWriter inside(m_format, m_values);
        for (std::size_t place = 0; place < m_order.size(); ++place)
            if (m_isTaken[place] == 0)
                AppendOperation(place, inside);
        m_subject.lines = inside.GetLines();
        LineWriter block(m_format, m_values);
        AppendFrame(job::FormatPart::kMember, block);
        block.AppendText(inside.GetText(), inside.GetLines());
        AppendFrame(job::FormatPart::kMemberEnd, block);
        if (block.HasFault())
            m_faults.push_back({block.TakeFault()});
        return {block.TakeText(), block.GetLines(), m_member.quantity, std::move(m_isSilent)};
    }

  private:
    std::vector<std::size_t> MakeOrder() const {
        std::vector<std::size_t> order(m_member.operations.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        if (m_format.order == job::OperationOrder::kGathered)
            return order;
        std::vector<std::size_t> rows;
        for (const MachineOperation& operation : m_member.operations)
            rows.push_back(RowOf(operation));
        const std::vector<double> x = PlacesAlong(job::FormatField::kX, order);
        const std::vector<double> y = PlacesAlong(job::FormatField::kY, order);
        const auto keyOf = [&](std::size_t position) {
            return std::tuple(rows[position], x[position], y[position]);
        };
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return keyOf(a) < keyOf(b);
        });
        return order;
    }
    /// What goes before X in the order.
    std::size_t RowOf(const MachineOperation& operation) const {
        if (m_format.order == job::OperationOrder::kByTool)
            return m_values.ToolRowOf(operation);
        return m_format.order == job::OperationOrder::kByFace ? m_values.FaceRowOf(operation) : 0;
    }

    /// Where operations lie for the machine, mm.
    std::vector<double> PlacesAlong(job::FormatField field,
                                    const std::vector<std::size_t>& positions) const {
        std::vector<double> places;
        FormatSubject subject;
        subject.member = &m_member;
        for (const std::size_t position : positions) {
            subject.operation = &m_member.operations[position];
            const FormatValue value = m_values.ValueOf(field, subject);
            const double* place = std::get_if<double>(&value);
            places.push_back(place != nullptr ? *place : 0.0);
        }
        return places;
    }

    void AppendFrame(job::FormatPart part, LineWriter& block) const {
        if (const job::FormatLine* line = FindLine(m_format, part, m_subject))
            block.Append(*line, m_subject);
    }

    void AppendOperation(std::size_t place, LineWriter& inside) {
        const MachineOperation& operation = m_member.operations[m_order[place]];
        FormatSubject subject = m_subject;
        subject.operation = &operation;
        subject.index = ++m_index;
        subject.count = operation.points.length();
        const job::FormatLine* line = TakeLine(place, subject);
        m_isTaken[place] = 1;
        if (line != nullptr)
            AppendLines(*line, subject, inside);
        else
            inside.SetFault({WhyNoLine(subject)});
        if (inside.HasFault())
            m_faults.push_back({inside.TakeFault(), static_cast<long>(m_order[place])});
    }

    /// The first line that fits the operation, and those that it repeats.
    const job::FormatLine* TakeLine(std::size_t place, FormatSubject& subject) {
        for (const job::FormatLine& line : m_format.LinesFor(PartOf(*subject.operation)))
            if (Fits(line, subject) && (!line.repeat || TakeRun(line, place, subject))) {
                Take(line, place);
                return &line;
            }
        return nullptr;
    }

    void Take(const job::FormatLine& line, std::size_t place) {
        m_isTaken[place] = 1;
        m_isSilent[m_order[place]] = line.lines.empty() ? 1 : 0;
    }

    /// Of an operation that no line has taken.
    ZetString WhyNoLine(const FormatSubject& subject) const {
        const job::FormatPart part = PartOf(*subject.operation);
        const std::vector<job::FormatLine>& lines = m_format.LinesFor(part);
        if (lines.empty())
            return L"the format has no line for it";
        const auto fits = [&](const job::FormatLine& line) { return Fits(line, subject); };
        return std::any_of(lines.begin(), lines.end(), fits)
                   ? L"the lines of the format that fit it are with \"repeat\", and it is not repeated"
                   : L"no line of the format for it fits its face, code and group";
    }

    bool TakeRun(const job::FormatLine& line, std::size_t place, FormatSubject& subject) {
        auto [at, isNew] = m_repeated.try_emplace(&line);
        if (isNew)
            at->second = std::make_unique<RepeatedOperations>(
                m_member,
                m_order,
                *line.repeat,
                StepsOf(line),
                std::pow(10.0, line.repeatDecimals - line.pitchDecimals));
        const RepeatedOperations::Run run =
            at->second->RunWith(place, static_cast<std::size_t>(line.least), m_isTaken);
        if (run.places.empty())
            return false;
        for (const std::size_t taken : run.places)
            Take(line, taken);
        subject.operation = &m_member.operations[m_order[run.places.front()]];
        subject.count = static_cast<long>(run.places.size());
        subject.pitch = run.pitch * StepOf(line);
        return true;
    }

    /// mm.
    double StepOf(const job::FormatLine& line) const {
        return std::pow(10.0, -line.repeatDecimals) / InUnit(1.0, m_format.numbers.unit);
    }
    /// Where each operation lies for the machine, as it would be written.
    std::vector<double> StepsOf(const job::FormatLine& line) const {
        const bool isAlong = *line.repeat == job::RepeatAxis::kX;
        std::vector<double> steps =
            PlacesAlong(isAlong ? job::FormatField::kX : job::FormatField::kY, m_order);
        for (double& step : steps)
            step = plugin::StepsOf(InUnit(step, m_format.numbers.unit), line.repeatDecimals);
        return steps;
    }

    void AppendLines(const job::FormatLine& line, FormatSubject subject, LineWriter& inside) const {
        inside.Append(line, subject);
        const job::FormatPart part = PartOf(*subject.operation);
        const bool hasPoints = part == job::FormatPart::kOutline || part == job::FormatPart::kMark;
        if (!hasPoints || line.lines.empty() || ShowsPoints(line))
            return;
        subject.index = 0;
        for (const ZetGeomPoint2d& point : subject.operation->points) {
            subject.point = &point;
            ++subject.index;
            if (const job::FormatLine* each = FindLine(m_format, job::FormatPart::kPoint, subject))
                inside.Append(*each, subject);
            else if (!m_format.LinesFor(job::FormatPart::kPoint).empty())
                inside.SetFault({kNoPointLine});
        }
    }

    const job::MachineFormat& m_format;
    const FormatValues& m_values;
    const MachineMember& m_member;
    std::vector<FormatFault>& m_faults;
    const std::vector<std::size_t> m_order;  ///< positions of operations
    std::vector<char> m_isTaken;             ///< by place in the order: a line has it already
    std::vector<char> m_isSilent;            ///< by operation
    std::map<const job::FormatLine*, std::unique_ptr<RepeatedOperations>> m_repeated;
    FormatSubject m_subject;
    long m_index = 0;
};

/// Writes one file around its members.
class FormatWriter::FileText {
  public:
    FileText(const FormatWriter& writer, const FormatTexts& texts)
        : m_format(writer.m_format), m_values(writer.m_values) {
        m_subject.texts = &texts;
    }

    std::string Write(const std::vector<FormattedGroup>& groups,
                      const std::vector<ZetString>& header,
                      std::vector<FormatFault>& faults) {
        LineWriter inside(m_format, m_values);
        for (const FormattedGroup& group : groups)
            if (!group.members.empty())
                AppendGroup(group, inside);
        LineWriter file(m_format, m_values);
        m_subject.lines = inside.GetLines();
        AppendFrame(job::FormatPart::kFileStart, m_subject, header, file);
        file.AppendText(inside.GetText(), inside.GetLines());
        AppendFrame(job::FormatPart::kFileEnd, m_subject, header, file);
        faults.insert(faults.end(), m_faults.begin(), m_faults.end());
        return file.TakeText();
    }

  private:
    void AppendFrame(job::FormatPart part,
                     const FormatSubject& subject,
                     const std::vector<ZetString>& header,
                     LineWriter& writer) {
        writer.SetHeader(header);
        if (const job::FormatLine* line = FindLine(m_format, part, subject))
            writer.Append(*line, subject);
        if (!writer.HasFault())
            return;
        m_faults.push_back({writer.TakeFault()});
        m_faults.back().text += Describe(subject);
    }

    /// Where a fault is: behind its text.
    static ZetString Describe(const FormatSubject& subject) {
        if (subject.group == nullptr)
            return {};
        const ZetString group = L" in group \"" + *subject.group + L"\"";
        return subject.section->isEmpty() ? group : group + L", " + *subject.section;
    }

    void AppendGroup(const FormattedGroup& group, LineWriter& inside) {
        FormatSubject subject = m_subject;
        subject.members = static_cast<long>(group.members.size());
        subject.pieces = 0;
        subject.lines = 0;
        for (const FormattedMember* member : group.members) {
            subject.pieces += member->quantity;
            subject.lines += member->lines;
        }
        m_subject.members += subject.members;
        m_subject.pieces += subject.pieces;
        subject.group = &group.id;
        subject.section = &group.section;
        AppendFrame(job::FormatPart::kGroupStart, subject, group.header, inside);
        for (const FormattedMember* member : group.members)
            inside.AppendText(member->text, member->lines);
        AppendFrame(job::FormatPart::kGroupEnd, subject, group.header, inside);
    }

    const job::MachineFormat& m_format;
    const FormatValues& m_values;
    FormatSubject m_subject;
    std::vector<FormatFault> m_faults;
};

FormattedMember FormatWriter::WriteMember(const MachineMember& member,
                                          const FormatTexts& texts,
                                          std::vector<FormatFault>& faults) const {
    return MemberText(*this, member, texts, faults).Write();
}

std::string FormatWriter::WriteFile(const std::vector<FormattedGroup>& groups,
                                    const std::vector<ZetString>& header,
                                    const FormatTexts& texts,
                                    std::vector<FormatFault>& faults) const {
    return FileText(*this, texts).Write(groups, header, faults);
}

}  // namespace plugin
