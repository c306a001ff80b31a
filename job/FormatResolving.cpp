#include "job/FormatResolving.h"

#include "codepages/CodePages.h"
#include "job/FormatFile.h"
#include "job/LineTemplates.h"
#include "job/MessageTexts.h"
#include "job/ShadowedRules.h"
#include "job/formats/TextEncoding.h"

#include <algorithm>
#include <utility>

namespace job {

namespace {

/// Places have no more that tell anything.
constexpr int kMaxRepeatDecimals = 9;

bool Shows(const TemplatePiece& piece, FormatField field) {
    return piece.field != nullptr && piece.field->field == field;
}

bool Shows(const LineTemplate& pieces, FormatField field) {
    return std::any_of(pieces.begin(), pieces.end(), [&](const TemplatePiece& piece) {
        return Shows(piece, field);
    });
}

/// What the lines of one thing show.
bool Shows(const FormatLine& line, FormatField field) {
    return std::any_of(line.lines.begin(), line.lines.end(), [&](const LineTemplate& pieces) {
        return Shows(pieces, field);
    });
}

/// Written with as many decimals as its precision says.
bool IsFixed(const FieldSpec& spec) {
    return spec.type == 0 || spec.type == 'f' || spec.type == 'F';
}

bool IsHole(FormatPart part) {
    return part >= FormatPart::kHole && part <= FormatPart::kRectangle;
}

bool HasDiameter(FormatPart part) {
    return IsHole(part) || part == FormatPart::kNotch;
}

bool HasLength(FormatPart part) {
    return part >= FormatPart::kSlot && part <= FormatPart::kNotch;
}

bool HasPoints(FormatPart part) {
    return part == FormatPart::kOutline || part == FormatPart::kMark;
}

bool HasFace(FormatPart part) {
    return IsOperation(part) && part != FormatPart::kMitre;
}

bool HasCode(FormatPart part) {
    return HasFace(part) && part != FormatPart::kMark && part != FormatPart::kText;
}

bool HasGroup(FormatPart part) {
    return part != FormatPart::kFileStart && part != FormatPart::kFileEnd;
}

/// A key of a line that only some parts can have.
struct ConditionRow {
    const char* key;
    bool (*isGiven)(const LineTable& table);
    bool (*isForPart)(FormatPart part);
    const char* reason;             ///< behind the part's name
    const char* ofPoint = nullptr;  ///< instead of it for point
};

constexpr const char* kAsItsOutline = ": a point is chosen with its outline or mark; put it there";

/// A key of a tool that only some kinds have.
struct ToolRow {
    const char* key;
    bool (*isGiven)(const ToolTable& table);
    bool (*isForPart)(FormatPart part);
    const char* parts;  ///< behind "it is for"
};

// clang-format off
constexpr ConditionRow kConditions[] = {
    {"faces", [](const LineTable& t) { return !t.faces.empty(); }, HasFace, ": it lies on no face", kAsItsOutline},
    {"codes", [](const LineTable& t) { return !t.codes.empty(); }, HasCode, ": it has no code", kAsItsOutline},
    {"groups", [](const LineTable& t) { return !t.groups.empty(); }, HasGroup, ": a file has several groups"},
    {"repeat", [](const LineTable& t) { return t.repeat.has_value(); }, IsHole, ": it is for hole, countersunk, slot and rectangle"},
    {"between", [](const LineTable& t) { return t.between.has_value(); }, [](FormatPart part) { return part == FormatPart::kPoint; }, ": it is for point"},
};

constexpr ToolRow kToolKeys[] = {
    {"diameter", [](const ToolTable& t) { return t.diameter.has_value(); }, HasDiameter, "hole, countersunk, slot, rectangle and notch"},
    {"length", [](const ToolTable& t) { return t.length.has_value(); }, HasLength, "slot, rectangle and notch"},
    {"code", [](const ToolTable& t) { return !t.code.isEmpty(); }, HasCode, "all but mitre, mark and text"},
};
// clang-format on

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
        m_format.texts.page =
            codepages::FindCodePage(NameOf(static_cast<NcEncoding>(table.encoding)));
        m_format.lineEnd = table.lineEnds == LineEnds::kCrLf ? "\r\n" : "\n";
        Require(!table.isSound || table.longest > 0 || table.tooLong == TooLong::kRefuse,
                table.PlaceOf("too_long"),
                "\"too_long\" in [texts] needs \"longest\"");
    }

    void TakeNames() {
        const FormatTable& table = m_document.format;
        m_format.faces.otherwise = table.otherFaces;
        m_format.tools.otherwise = table.otherTools;
        m_format.profiles.otherwise = table.otherProfiles;
        TakeFaces();
        for (const ToolTable& tool : m_document.tools) {
            RequireEncoded(tool.number, tool, "number");
            CheckKeys(tool);
            m_format.tools.rows.push_back(tool);
            m_format.tools.rows.back().kind = static_cast<FormatPart>(tool.part);
        }
        for (const ProfileTable& profile : m_document.profiles) {
            RequireEncoded(profile.name, profile, "name");
            m_format.profiles.rows.push_back(profile);
        }
        Require(table.order != OperationOrder::kByTool || !m_document.tools.empty(),
                table.PlaceOf("order"),
                "\"order\" by tool needs [[tool]]");
        CheckOthers(m_document.faces.empty(), table.otherFaces, "other_faces", "[[face]]");
        CheckOthers(m_document.tools.empty(), table.otherTools, "other_tools", "[[tool]]");
        CheckOthers(
            m_document.profiles.empty(), table.otherProfiles, "other_profiles", "[[profile]]");
        CheckShadowed(m_document, m_faults);
    }

    void CheckKeys(const ToolTable& tool) {
        const auto part = static_cast<FormatPart>(tool.part);
        for (const ToolRow& row : kToolKeys)
            Require(
                !tool.isSound || !row.isGiven(tool) || row.isForPart(part),
                tool.PlaceOf(row.key),
                Quoted(row.key) + " goes not with " + NameOf(part) + ": it is for " + row.parts);
    }

    void TakeFaces() {
        auto& rows = m_format.faces.rows;
        for (const FaceTable& face : m_document.faces) {
            const auto isSame = [&](const FaceName& row) { return row.face == face.face; };
            Require(!face.isSound || std::none_of(rows.begin(), rows.end(), isSame),
                    face.PlaceOf("face"),
                    "the face " + Quoted(NameOf(face.face)) + " stands here a second time");
            RequireEncoded(face.name.value_or(ZetString()), face, "name");
            rows.push_back(face);
        }
    }

    void RequireEncoded(const ZetString& text, const PlacedTable& table, const char* key) {
        Require(InEncoding(text.view(), m_format.texts.page).has_value(),
                table.PlaceOf(key),
                "the encoding of the format has not all characters of " + Quoted(text));
    }

    /// What all else is called where a table has no row for it.
    void CheckOthers(bool isEmpty,
                     const std::optional<ZetString>& otherwise,
                     const char* key,
                     const char* table) {
        Require(!isEmpty || !otherwise,
                m_document.format.PlaceOf(key),
                Quoted(key) + " needs at least one " + table);
        RequireEncoded(otherwise.value_or(ZetString()), m_document.format, key);
    }

    void TakeLine(const LineTable& table) {
        if (!table.isSound)
            return;
        CheckConditions(table);
        Require(
            table.texts.has_value(), table.at, "\"text\" is missing in [[line]]; [] is no line");
        if (HasPartTwice(table))
            return;
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

    /// Told.
    bool HasPartTwice(const LineTable& table) {
        for (auto part = table.parts.begin(); part != table.parts.end(); ++part)
            if (std::find(table.parts.begin(), part, *part) != part) {
                m_faults.Add(table.PlaceOf("for"),
                             Quoted(NameOf(*part)) + " stands twice in \"for\"");
                return true;
            }
        return false;
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
        RequireEncoded(table.between.value_or(ZetString()), table, "between");
        line.between = between.value_or("");
        return line;
    }

    static std::string AsPart(FormatPart part) { return std::string(NameOf(part)) + ": "; }

    /// Those that the place along the axis and the pitch are really written with.
    void TakeRepeatDecimals(const LineTable& table, FormatPart part, FormatLine& line) {
        if (!line.repeat)
            return;
        const FormatField place = line.repeat == RepeatAxis::kY ? FormatField::kY : FormatField::kX;
        line.pitchDecimals = kMaxRepeatDecimals;
        for (const LineTemplate& pieces : line.lines)
            for (const TemplatePiece& piece : pieces) {
                const bool isPitch = Shows(piece, FormatField::kPitch);
                if (!isPitch && !Shows(piece, place))
                    continue;
                Require(IsFixed(piece.spec),
                        PlaceOf(table, line, piece.field->field),
                        AsPart(part) + "{" + piece.field->name +
                            "} of a line with \"repeat\" has decimals, not e or g");
                const int decimals = DecimalsOf(piece.spec);
                line.repeatDecimals = std::max(line.repeatDecimals, decimals);
                if (isPitch)
                    line.pitchDecimals = std::min(line.pitchDecimals, decimals);
            }
    }

    /// Of the text that shows a value; all texts of the table must have been read.
    static Position PlaceOf(const LineTable& table, const FormatLine& line, FormatField field) {
        const auto at =
            std::find_if(line.lines.begin(), line.lines.end(), [&](const LineTemplate& pieces) {
                return Shows(pieces, field);
            });
        return at == line.lines.end() || line.lines.size() != table.texts->size()
                   ? table.PlaceOf("text")
                   : (*table.texts)[static_cast<std::size_t>(at - line.lines.begin())].at;
    }

    int DecimalsOf(const FieldSpec& spec) const {
        return std::min(
            spec.precision >= 0 ? spec.precision : static_cast<int>(m_format.numbers.decimals),
            kMaxRepeatDecimals);
    }

    void CheckConditions(const LineTable& table) {
        for (const ConditionRow& row : kConditions) {
            const auto part =
                std::find_if_not(table.parts.begin(), table.parts.end(), row.isForPart);
            if (!row.isGiven(table) || part == table.parts.end())
                continue;
            const bool isOfPoint = *part == FormatPart::kPoint && row.ofPoint != nullptr;
            m_faults.Add(table.PlaceOf(row.key),
                         Quoted(row.key) + " goes not with " + NameOf(*part) +
                             (isOfPoint ? row.ofPoint : row.reason));
        }
        Require(table.repeat || !table.least, table.PlaceOf("least"), "\"least\" needs \"repeat\"");
    }

    void CheckLine(const LineTable& table, FormatPart part, const FormatLine& line) {
        const std::vector<FormatLine>& earlier = m_format.LinesFor(part);
        Require(std::none_of(earlier.begin(), earlier.end(), TakesAll),
                table.PlaceOf("for"),
                "no " + std::string(NameOf(part)) +
                    " comes to this line: an earlier one without conditions takes all");
        Require(!Shows(line, FormatField::kTool) || !m_document.tools.empty(),
                PlaceOf(table, line, FormatField::kTool),
                AsPart(part) + "{tool} needs [[tool]]");
        CheckHeader(table, line);
        CheckRepeat(table, part, line);
        CheckPoints(table, part, line);
    }

    void CheckHeader(const LineTable& table, const FormatLine& line) {
        for (std::size_t i = 0; i < line.lines.size(); ++i) {
            const LineTemplate& pieces = line.lines[i];
            const bool isAlone = pieces.size() == 1 && pieces[0].text.empty();
            Require(isAlone || !Shows(pieces, FormatField::kHeader),
                    (*table.texts)[i].at,
                    "{header} stands alone in its line: it is any number of lines");
        }
    }

    void CheckRepeat(const LineTable& table, FormatPart part, const FormatLine& line) {
        const bool hasCount = Shows(line, FormatField::kCount);
        const bool hasPitch = Shows(line, FormatField::kPitch);
        if (table.repeat)
            Require(hasCount && hasPitch && Shows(line, FormatField::kX) &&
                        Shows(line, FormatField::kY),
                    table.PlaceOf("repeat"),
                    AsPart(part) + "a line with \"repeat\" needs {x}, {y}, {count} and {pitch}");
        else
            Require(!hasPitch && (!hasCount || HasPoints(part)),
                    PlaceOf(table, line, hasPitch ? FormatField::kPitch : FormatField::kCount),
                    AsPart(part) + "{count} and {pitch} need \"repeat\"");
    }

    void CheckPoints(const LineTable& table, FormatPart part, const FormatLine& line) {
        const auto isForPoints = [](const LineTable& each) {
            return !each.isSound ||
                   std::find(each.parts.begin(), each.parts.end(), FormatPart::kPoint) !=
                       each.parts.end();
        };
        const auto hasOneTextForPoints = [&](const LineTable& each) {
            return !each.isSound || !isForPoints(each) || !each.texts || each.texts->size() == 1;
        };
        const auto& lines = m_document.lines;
        const bool hasPointLine = std::any_of(lines.begin(), lines.end(), isForPoints);
        const bool isTold = !HasPoints(part) || line.lines.empty() ||
                            Shows(line, FormatField::kCode) || hasPointLine;
        Require(isTold,
                table.PlaceOf("text"),
                AsPart(part) + "its points are nowhere: there is no line for \"point\"");
        const bool showsPoints = Shows(line, FormatField::kPoints);
        const Position at = PlaceOf(table, line, FormatField::kPoints);
        Require(!isTold || hasPointLine || !showsPoints,
                at,
                AsPart(part) + "{points} needs a line for \"point\"");
        Require(!showsPoints || std::all_of(lines.begin(), lines.end(), hasOneTextForPoints),
                at,
                AsPart(part) + "{points} stands in one line, so \"point\" has one text");
    }

    const FormatDocument& m_document;
    JobFaults& m_faults;
    MachineFormat m_format;
};

}  // namespace

bool ShowsHeader(const MachineFormat& format, std::initializer_list<FormatPart> parts) {
    return std::any_of(parts.begin(), parts.end(), [&](FormatPart part) {
        const std::vector<FormatLine>& lines = format.LinesFor(part);
        return std::any_of(lines.begin(), lines.end(), [](const FormatLine& line) {
            return Shows(line, FormatField::kHeader);
        });
    });
}

MachineFormat ResolveFormat(const FormatDocument& document,
                            std::string_view stem,
                            JobFaults& faults) {
    return FormatMaker(document, faults).Make(stem);
}

}  // namespace job
