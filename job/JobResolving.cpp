#include "job/JobResolving.h"

#include "job/BuiltInJob.h"
#include "job/CodeFormat.h"
#include "job/FileNames.h"
#include "job/FormatFile.h"
#include "job/IsoDate.h"
#include "job/MemberLine.h"
#include "job/MessageTexts.h"
#include "job/NcNames.h"
#include "job/ShadowedRules.h"
#include "job/Utf8Path.h"

#include "camdata/platform/text/Unicode.h"
#include "camdata/platform/text/ZetFormat.h"
#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace job {

namespace {

constexpr std::size_t kCornersOfRectangle = 4;
constexpr std::size_t kSizesOfNotch = 2;
constexpr std::size_t kMostNotchValues = 3;
constexpr const wchar_t* kRecordsName = L"records";
constexpr const wchar_t* kNcName = L"dstv";
constexpr std::string_view kFormatEnding = ".toml";

std::string Quoted(const ZetString& text) {
    return job::Quoted(text.toUtf8());
}

/// The ids of one kind of table, by position.
class Ids {
  public:
    explicit Ids(std::string table) : m_table(std::move(table)) {}

    /// Those that are there without the job file.
    template <typename Rows>
    void Preset(const Rows& rows) {
        for (const auto& row : rows)
            m_ids.push_back({row.id, {}});
    }
    void Add(const PlacedText& id, JobFaults& faults) {
        const std::size_t position = PositionOf(id.text);
        if (position < m_ids.size())
            faults.Add(id.at, "the id " + Quoted(id.text) + " " + DescribeFirst(position));
        m_ids.push_back(id);
    }
    /// The position of what a reference names; nothing, and told, when it points nowhere.
    std::optional<std::size_t> Find(const PlacedText& reference, JobFaults& faults) const {
        const std::size_t position = PositionOf(reference.text);
        if (position < m_ids.size())
            return position;
        if (reference.at.line > 0)
            faults.Add(reference.at,
                       "there is no " + m_table + " with the id " + Quoted(reference.text) +
                           Suggest(reference.text.toUtf8(), Names()));
        return std::nullopt;
    }
    /// The number of ids when there is no such one; "" is none.
    std::size_t PositionOf(const ZetString& id) const {
        const auto known = std::find_if(m_ids.begin(), m_ids.end(), [&](const PlacedText& row) {
            return row.text == id && !id.isEmpty();
        });
        return static_cast<std::size_t>(known - m_ids.begin());
    }

  private:
    std::string DescribeFirst(std::size_t position) const {
        const long line = m_ids[position].at.line;
        if (line == 0)
            return "belongs to a " + m_table + " that is always there";
        return "stands a second time; first in line " + std::to_string(line);
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const PlacedText& id : m_ids)
            names.push_back(id.text.toUtf8());
        return names;
    }

    std::string m_table;
    std::vector<PlacedText> m_ids;
};

/// The names of a run's files, each told when it is impossible or that of an earlier one.
class FileNames {
  public:
    void Add(const ZetString& name, Position at, JobFaults& faults) {
        const std::string fault = FaultOfFileName(name);
        const std::wstring small = SmallLetters(name);
        if (!fault.empty())
            faults.Add(at, "file name " + Quoted(name) + ": " + fault);
        else if (std::find(m_names.begin(), m_names.end(), small) != m_names.end())
            faults.Add(at,
                       "file name " + Quoted(name) +
                           ": another output file has it already (capitals do not count)");
        m_names.push_back(small);
    }

  private:
    std::vector<std::wstring> m_names;
};

std::vector<NumberInName> NumbersInName(const MemberTypeTable& table) {
    std::vector<NumberInName> numbers;
    const auto add = [&](const char* key, const SizeTable& size) {
        if (size.source == eProfPropName)
            numbers.push_back(
                {key, size.start.value_or(0), size.length.value_or(0), true, size.at.line});
    };
    add("height", table.height);
    add("width", table.width);
    add("thickness", table.thickness);
    // A sign stands before the number.
    if (table.slope && table.slope->source == SlopeSource::kName)
        numbers.push_back({"slope",
                           table.slope->start.value_or(0) + 1,
                           table.slope->length.value_or(0),
                           false,
                           table.slope->at.line});
    return numbers;
}

/// Makes a job from what its file says, table by table.
class JobMaker {
  public:
    JobMaker(const JobDocument& document, const std::filesystem::path& jobFile, JobFaults& faults)
        : m_document(document),
          m_folder(jobFile.parent_path()),
          m_stem(ZetString::fromUtf8(Utf8FromPath(jobFile.stem()))),
          m_faults(faults) {}

    Job Make() {
        TakeJob();
        TakeFiles();
        TakeGroups();
        TakeStocks();
        CheckFileNames();
        TakePatterns();
        TakeMemberTypes();
        TakeHoleRules();
        TakeCornerNotches();
        TakeTrims();
        TakeAssemblies();
        TakeInfo();
        CheckShadowed(m_document, m_faults);
        return std::move(m_job);
    }

  private:
    void TakeJob();
    void TakeFiles();
    void TakeFormat(const FileTable& table, std::size_t position);
    void TakeNcOutput(const FileTable& table, std::size_t position);
    void RequireMembers(const FileTable& table, std::size_t position);
    std::optional<MachineFormat> ReadFormat(const PlacedText& name);
    void CheckFileNames();
    void TakeGroups();
    void TakeGroup(const SecondaryPartsTable& table, const PlacedText& id, Group& group);
    void TakeGroupFile(const PlacedText& reference, std::size_t file, Group& group);
    void TakeStocks();
    void CheckStock(const StockTable& table, bool hasPrice);
    void CheckPlan(const GroupTable& table);
    void TakePatterns();
    void CheckPatternHole(const FixedPattern& pattern, const PatternHoleTable& hole);
    void TakeMemberTypes();
    MemberType MakeMemberType(const MemberTypeTable& table);
    CMemTypeAndAttrib MakeDimensions(const MemberTypeTable& table, std::size_t group);
    CMemberValidations MakeLimits(const MemberTypeTable& table);
    void CheckDimension(const char* key,
                        const DimensionTable& table,
                        eProfPropType source,
                        bool hasAttributes);
    void TakeHoleRules();
    void CheckHoleRule(const HoleRuleTable& table, const Ids& ids);
    void TakeCornerNotches();
    void CheckCornerNotch(const CornerNotchTable& table);
    void CheckNotchValues(const CornerNotchTable& table);
    void TakeTrims();
    void TakeAssemblies();
    void CheckPart(const AssemblyTable& assembly, std::size_t part, const Ids& mains);
    void TakeInfo();

    void TakeUncovered();
    bool CheckCode(const PlacedText& code, CodeOf what);
    void TakeDates();
    void TakeCommentMarker();
    void CheckHeadings(const PlacedTable& table, const std::vector<ZetString>& lines);
    void CheckPath(const char* key, const std::string& path, Position at);
    void Require(bool isGood, Position at, const std::string& text) {
        if (!isGood)
            m_faults.Add(at, text);
    }
    /// For what several keys of a table say together: only told when each can be trusted.
    void RequireOf(const PlacedTable& table, bool isGood, const std::string& text) {
        Require(isGood || !table.isSound, table.at, text);
    }

    const JobDocument& m_document;
    const std::filesystem::path m_folder;
    const ZetString m_stem;
    JobFaults& m_faults;
    std::set<ZetString> m_formatFiles;  ///< whose faults are told
    Job m_job = MakeEmptyJob();
    Ids m_files{"[[file]]"};
    Ids m_groups{"[[group]]"};
    Ids m_patterns{"[[fixed_pattern]]"};
};

void JobMaker::TakeJob() {
    const JobTable& table = m_document.job;
    m_job.name = table.name;
    m_job.ncFiles = table.ncFiles;
    m_job.outputFolder = table.output.text.toUtf8();
    m_job.date = table.date;
    m_job.maximumQuantity = table.maximumQuantity;
    m_job.nc = m_document.nc;
    m_job.reports = m_document.reports;
    m_job.project = m_document.project;
    m_job.project.fileName = m_document.project.fileName.text;
    if (m_job.project.fileName.isEmpty())
        m_job.project.fileName = m_stem;
    m_job.project.settingsFile = m_document.project.settingsFile.text;
    TakeDates();
    TakeCommentMarker();
    m_job.tolerances = m_document.tolerances;
    m_job.areDistancesChecked = m_document.tolerances.areDistancesChecked;
    TakeUncovered();
    CheckPath("output", m_job.outputFolder, table.output.at);
    for (const NcFilePattern& pattern : table.ncFiles)
        CheckPath("nc_files", pattern.text, {pattern.line, pattern.column});
}

void JobMaker::TakeUncovered() {
    const PlacedText& code = m_document.uncoveredHoles.code;
    m_job.uncoveredHoles = m_document.uncoveredHoles;
    m_job.uncoveredHoles.code = code.text;
    CheckCode(code, CodeOf::kHole);
    const PlacedText& notchCode = m_document.uncoveredNotches.code;
    m_job.uncoveredNotches = m_document.uncoveredNotches;
    m_job.uncoveredNotches.code = notchCode.text;
    CheckCode(notchCode, CodeOf::kNotch);
}

/// False, and told, when nothing can be called so.
bool JobMaker::CheckCode(const PlacedText& code, CodeOf what) {
    const std::string fault = FaultOfCode(code.text, what);
    Require(fault.empty(), code.at, "\"code\": " + fault);
    return fault.empty();
}

/// The dialog shows a day, and gives it back as the day that it is.
void JobMaker::TakeDates() {
    struct DateRow {
        const char* key;
        PlacedText ProjectTable::*from;
        ZetString ProjectData::*to;
    };
    constexpr DateRow kDates[] = {
        {"cold_rolled_order_date",
         &ProjectTable::coldRolledOrderDate,
         &ProjectData::coldRolledOrderDate                                                },
        {"revision_date",          &ProjectTable::revisionDate, &ProjectData::revisionDate},
        {"delivery_date",          &ProjectTable::deliveryDate, &ProjectData::deliveryDate},
    };
    for (const DateRow& row : kDates) {
        const PlacedText& text = m_document.project.*row.from;
        m_job.project.*row.to = text.text;
        Require(text.text.isEmpty() || ParseIsoDate(text.text),
                text.at,
                job::Quoted(row.key) + ": " + Quoted(text.text) +
                    " is no day from 1601-01-01 on that is written as 2026-03-31; without this key "
                    "it is the day of the run");
    }
}

/// Blanks follow it in the second line of comments and address.
void JobMaker::TakeCommentMarker() {
    const PlacedText& marker = m_document.project.commentMarker;
    m_job.project.commentMarker = marker.text;
    Require(!BeginsMember(marker.text + L" "),
            marker.at,
            "\"comment_marker\" must not begin with the word \"member\": members do");
}

void JobMaker::CheckHeadings(const PlacedTable& table, const std::vector<ZetString>& lines) {
    RequireOf(table,
              std::none_of(lines.begin(), lines.end(), BeginsMember),
              "no line of \"header\" can begin with the word \"member\": members do");
}

/// A backslash parts folders on Windows only.
void JobMaker::CheckPath(const char* key, const std::string& path, Position at) {
    Require(path.find('\\') == std::string::npos,
            at,
            job::Quoted(key) + ": part folders with / on every system, not with \\");
    const ZetString text = ZetString::fromUtf8(path);
    Require(std::none_of(text.view().begin(), text.view().end(), camdata::detail::IsLayoutControl),
            at,
            job::Quoted(key) + ": the name of a file or folder cannot have control characters");
}

void JobMaker::TakeFiles() {
    Ids given("[[file]]");
    m_files.Preset(m_job.files);
    for (const FileTable& table : m_document.files) {
        given.Add(table.id, m_faults);
        const std::size_t position = m_files.PositionOf(table.id.text);
        if (position == m_job.files.size()) {
            m_job.files.emplace_back().id = table.id.text;
            m_files.Add(table.id, m_faults);
            Require(table.ending.at.line > 0 || table.format.text == kNcName,
                    table.at,
                    "\"ending\" is missing in [[file]]: a file of the job's own needs one");
        }
        OutputFile& file = m_job.files[position];
        file.headerLines = table.headerLines;
        CheckHeadings(table, table.headerLines);
        file.hasProjectHeader = table.hasProjectHeader;
        file.lineEnds = table.lineEnds.value_or(LineEnds::kLf);
        TakeFormat(table, position);
        if (table.ending.at.line > 0)
            file.ending = table.ending.text;
    }
}

void JobMaker::TakeFormat(const FileTable& table, std::size_t position) {
    if (table.format.text == kNcName)
        return TakeNcOutput(table, position);
    for (const PlacedText* text : {&table.folder, &table.names})
        Require(text->at.line == 0,
                text->at,
                "\"folder\" and \"names\" go only with format = \"dstv\"");
    if (table.format.text == kRecordsName)
        return;
    RequireMembers(table, position);
    std::optional<MachineFormat> format = ReadFormat(table.format);
    if (!format)
        return;
    if (table.lineEnds)
        format->lineEnd = table.lineEnds == LineEnds::kCrLf ? "\r\n" : "\n";
    m_job.files[position].format = m_job.formats.size();
    m_job.formats.push_back(std::move(*format));
}

void JobMaker::RequireMembers(const FileTable& table, std::size_t position) {
    Require(position == kOrderFile || position >= kFirstOwnFile,
            table.format.at,
            "\"format\": the file " + Quoted(table.id.text) +
                " takes no members: only \"order\" and files of the job's own do");
}

void JobMaker::TakeNcOutput(const FileTable& table, std::size_t position) {
    RequireMembers(table, position);
    Require(table.ending.at.line == 0,
            table.ending.at,
            "\"ending\" goes not with format = \"dstv\": the files are named by \"folder\" and "
            "\"names\"");
    NcOutput& output = m_job.files[position].nc.emplace();
    if (table.folder.at.line > 0)
        output.folder = table.folder.text.toUtf8();
    if (table.names.at.line > 0)
        output.names = table.names.text;
    const std::string fault = FaultOfNcNames(output.names);
    Require(fault.empty(), table.names.at, "\"names\": " + fault);
}

/// Nothing, and told, when there is none.
std::optional<MachineFormat> JobMaker::ReadFormat(const PlacedText& name) {
    const std::string text = name.text.toUtf8();
    JobFaults faults;
    if (const BuiltInFormat* builtIn = FindBuiltInFormat(text))
        return ReadFormatText(builtIn->text, builtIn->name, faults);
    CheckPath("format", text, name.at);
    std::vector<std::string> words;
    for (const BuiltInFormat& row : GetBuiltInFormats())
        words.emplace_back(row.name);
    if (!text.ends_with(kFormatEnding)) {
        m_faults.Add(name.at,
                     "\"format\": there is no format " + job::Quoted(text) + Suggest(text, words) +
                         "; the name of a format file ends with .toml");
        return std::nullopt;
    }
    const std::filesystem::path file = m_folder / PathFromUtf8(text);
    MachineFormat format = ReadFormatFile(file, faults);
    if (faults.IsEmpty())
        return format;
    if (m_formatFiles.insert(name.text).second)
        m_faults.AddOf(Utf8FromPath(file), std::move(faults));
    return std::nullopt;
}

/// Names are told at the ending that the job gives, else at the file name.
void JobMaker::CheckFileNames() {
    const PlacedText& fileName = m_document.project.fileName;
    const std::string fault = FaultOfFileNameStart(m_job.project.fileName);
    if (!fault.empty()) {
        m_faults.Add(fileName.at, "\"file_name\": " + fault);
        return;
    }
    FileNames names;
    const auto isNested = [](const Group& group) { return group.isNested; };
    if (std::any_of(m_job.groups.begin(), m_job.groups.end(), isNested))
        for (const wchar_t* ending : {kCuttingListEnding, kCuttingTableEnding})
            names.Add(m_job.project.fileName + ending, fileName.at, m_faults);
    if (!m_document.cutting.remnants.text.isEmpty())
        names.Add(m_job.project.fileName + kRemnantsEnding, fileName.at, m_faults);
    if (m_job.reports.hasPage)
        names.Add(m_job.project.fileName + kPageEnding, fileName.at, m_faults);
    if (m_job.reports.hasRunDocument)
        names.Add(m_job.project.fileName + kRunDocumentEnding, fileName.at, m_faults);
    for (const FileTable& table : m_document.files) {
        const std::size_t position = m_files.PositionOf(table.id.text);
        if (position < m_job.files.size() && m_job.files[position].nc)
            names.Add(ZetString::fromUtf8(m_job.files[position].nc->folder),
                      table.folder.at.line > 0 ? table.folder.at : table.at,
                      m_faults);
    }
    for (std::size_t i = 0; i < m_job.files.size(); ++i) {
        if (m_job.files[i].nc)
            continue;
        Position at = fileName.at;
        for (const FileTable& table : m_document.files)
            if (table.id.text == m_job.files[i].id && table.ending.at.line > 0)
                at = table.ending.at;
        if (i < kFirstOwnFile || at.line > 0)
            names.Add(m_job.project.fileName + m_job.files[i].ending, at, m_faults);
    }
    for (const ZetString& name : {m_job.project.settingsFile, SettingsOriginFile(m_job.project)})
        names.Add(name, m_document.project.settingsFile.at, m_faults);
}

void JobMaker::TakeGroup(const SecondaryPartsTable& table, const PlacedText& id, Group& group) {
    group = table;
    group.id = id.text;
    RequireOf(table, !table.files.empty(), "\"files\" must not be empty");
    CheckHeadings(table, table.headerLines);
    for (const PlacedText& reference : table.files)
        if (const std::optional<std::size_t> file = m_files.Find(reference, m_faults))
            TakeGroupFile(reference, *file, group);
}

void JobMaker::TakeGroupFile(const PlacedText& reference, std::size_t file, Group& group) {
    const auto& files = group.files;
    const std::string name = "the file " + Quoted(reference.text);
    Require(file == kOrderFile || file >= kFirstOwnFile,
            reference.at,
            name + " takes no members: only \"order\" and files of the job's own do");
    Require(std::find(files.begin(), files.end(), file) == files.end(),
            reference.at,
            name + " stands here a second time");
    group.files.push_back(file);
}

void JobMaker::TakeGroups() {
    m_groups.Preset(m_job.groups);
    TakeGroup(m_document.secondaryParts,
              {m_job.groups[kSecondaryGroup].id, {}},
              m_job.groups[kSecondaryGroup]);
    for (const GroupTable& table : m_document.groups) {
        m_groups.Add(table.id, m_faults);
        Group& group = m_job.groups.emplace_back();
        TakeGroup(table, table.id, group);
        group.headerLines = table.header.value_or(std::vector<ZetString>{L"", table.id.text});
        CheckHeadings(table, group.headerLines);
        CheckPlan(table);
    }
}

void JobMaker::CheckPlan(const GroupTable& table) {
    RequireOf(table, table.isNested || !table.plan, "\"plan\" needs \"nesting = true\"");
    RequireOf(table,
              table.plan != BarPlan::kLeast || table.reserveLength == 0.0,
              "\"reserve\" goes only with plan = \"given\"");
}

void JobMaker::TakeStocks() {
    const PlacedText& remnants = m_document.cutting.remnants;
    m_job.cutting = m_document.cutting;
    m_job.cutting.remnants = remnants.text.toUtf8();
    CheckPath("remnants", m_job.cutting.remnants, remnants.at);
    for (const StockTable& table : m_document.stocks) {
        CheckStock(table, m_document.stocks.front().price.has_value());
        m_job.stocks.push_back(table);
    }
}

void JobMaker::CheckStock(const StockTable& table, bool hasPrice) {
    RequireOf(table,
              table.gripStart + table.gripEnd < table.length,
              "the grips leave nothing of the bar");
    RequireOf(
        table,
        table.price.has_value() == hasPrice,
        "\"price\" must stand in all [[stock]] or in none: prices and lengths cannot be added");
}

void JobMaker::TakePatterns() {
    for (const FixedPatternTable& table : m_document.patterns) {
        m_patterns.Add(table.id, m_faults);
        FixedPattern pattern = table;
        pattern.id = table.id.text;
        pattern.line = table.at.line;
        for (const PatternHoleTable& hole : table.holes) {
            CheckPatternHole(pattern, hole);
            pattern.holes.push_back(hole);
            pattern.holes.back().message = hole.message.text;
        }
        m_job.patterns.push_back(std::move(pattern));
    }
}

void JobMaker::CheckPatternHole(const FixedPattern& pattern, const PatternHoleTable& hole) {
    constexpr ZetFormatArg::Kind kNumber = ZetFormatArg::Kind::kDouble;
    Require(camdata::detail::FormatTakes(hole.message.text.view(), {kNumber, kNumber}),
            hole.message.at,
            "\"message\" needs two conversions such as %.1f, for diameter and position; a percent "
            "sign is written %%");
    for (const double x : hole.positions)
        RequireOf(hole,
                  pattern.fixedLength <= 0.0 || std::abs(x) <= pattern.fixedLength,
                  "position " + ShowNumber(x) + " lies beyond the length " +
                      ShowNumber(pattern.fixedLength));
}

void JobMaker::TakeMemberTypes() {
    Ids ids("[[member_type]]");
    for (const MemberTypeTable& table : m_document.memberTypes) {
        ids.Add(table.id, m_faults);
        m_job.memberTypes.push_back(MakeMemberType(table));
    }
}

MemberType JobMaker::MakeMemberType(const MemberTypeTable& table) {
    MemberType type;
    type.id = table.id.text;
    type.line = table.at.line;
    type.profilePattern = table.profile;
    type.codePattern = table.code;
    type.isSkipped = table.isSkipped;
    Require(table.isSkipped || table.group.at.line > 0 || !table.group.text.isEmpty(),
            table.at,
            "\"group\" is missing in [[member_type]]");
    if (table.group.at.line > 0)
        type.group = m_groups.Find(table.group, m_faults).value_or(kFirstOwnGroup);
    Require(type.group != kSecondaryGroup,
            table.group.at,
            "the group of single parts takes its members from the assemblies alone");
    type.type = MakeDimensions(table, type.group);
    type.numbersInName = NumbersInName(table);
    type.limits = MakeLimits(table);
    type.reports = table.report.types;
    type.areMarksMade = table.areMarksMade;
    type.topFlange = table.topFlange;
    type.bottomFlange = table.bottomFlange;
    if (table.pattern.at.line > 0)
        type.pattern = m_patterns.Find(table.pattern, m_faults);
    return type;
}

CMemTypeAndAttrib JobMaker::MakeDimensions(const MemberTypeTable& table, std::size_t group) {
    const bool hasAttributes = table.attributes.has_value();
    CheckDimension("height", table.height, table.height.source, hasAttributes);
    CheckDimension("width", table.width, table.width.source, hasAttributes);
    CheckDimension("thickness", table.thickness, table.thickness.source, hasAttributes);
    const SlopeTable slope = table.slope.value_or(SlopeTable());
    const eProfPropType slopeSource =
        table.slope ? static_cast<eProfPropType>(slope.source) : eProfPropNone;
    CheckDimension("slope", slope, slopeSource, hasAttributes);
    const auto start = [](const DimensionTable& d) {
        return static_cast<int>(d.start.value_or(-1));
    };
    const auto length = [](const DimensionTable& d) {
        return static_cast<int>(d.length.value_or(0));
    };
    const auto value = [](const DimensionTable& d) { return d.value.value_or(0.0); };
    const SizeTable& height = table.height;
    const SizeTable& width = table.width;
    const ThicknessTable& thick = table.thickness;
    const auto orId = [&](const ZetString& text) { return text.isEmpty() ? table.id.text : text; };
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(static_cast<int>(group), 0,
                   height.source, start(height), length(height), value(height),
                   width.source, start(width), length(width), value(width),
                   thick.source, start(thick), length(thick), value(thick), thick.factor,
                   slopeSource, start(slope), length(slope), value(slope), 1.0,
                   0, 0, orId(table.description), orId(table.shortName),
                   table.nameStart, table.nameLength, 0);
    // clang-format on
    if (const auto& section = table.attributes) {
        CMemAttrib attributes;
        attributes.SetValues(
            section->height, section->bottomFlange, section->topFlange, section->thickness);
        type.SetMemAttrib(attributes);
    }
    return type;
}

/// What a source needs must be there, and nothing that it does not look at.
void JobMaker::CheckDimension(const char* key,
                              const DimensionTable& table,
                              eProfPropType source,
                              bool hasAttributes) {
    struct Part {
        const char* name;
        bool isGiven;
        eProfPropType source;
        const char* word;
    };
    const Part parts[] = {
        {"start",  table.start.has_value(),  eProfPropName,  "name" },
        {"length", table.length.has_value(), eProfPropName,  "name" },
        {"value",  table.value.has_value(),  eProfPropFixed, "fixed"},
    };
    for (const Part& part : parts) {
        const std::string name = job::Quoted(part.name);
        RequireOf(table,
                  part.source != source || part.isGiven,
                  name + " is missing in " + job::Quoted(key) + ": the source " +
                      job::Quoted(part.word) + " needs it");
        RequireOf(
            table,
            part.source == source || !part.isGiven,
            name + " in " + job::Quoted(key) + " is only for the source " + job::Quoted(part.word));
    }
    RequireOf(
        table,
        source != eProfPropAttrib || hasAttributes,
        job::Quoted(key) + " comes from \"attributes\", which are missing in [[member_type]]");
}

CMemberValidations JobMaker::MakeLimits(const MemberTypeTable& table) {
    constexpr long kAny = CMxUtil::m_NOT_LIMITED;
    const LimitsTable& given = table.limits;
    CMemberValidations limits;
    limits.SetNoOfHoles(given.maxHoles.value_or(kAny));
    limits.SetNoOfInternalContours(given.maxInternalContours.value_or(kAny));
    limits.SetNoOfExternalContours(given.maxExternalContours.value_or(kAny));
    limits.SetMinimumLength(given.minLength);
    limits.SetMaximumLength(given.maxLength.value_or(kAnyLength));
    RequireOf(given,
              limits.GetMinimumLength() <= limits.GetMaximumLength(),
              "\"min_length\" must not be above \"max_length\"");
    return limits;
}

void JobMaker::TakeHoleRules() {
    Ids ids("[[hole_rule]]");
    for (const HoleRuleTable& table : m_document.holeRules)
        ids.Add(table.id, m_faults);
    for (const HoleRuleTable& table : m_document.holeRules) {
        CheckHoleRule(table, ids);
        HoleRule& rule = m_job.holeRules.emplace_back(table);
        rule.id = table.id.text;
        rule.line = table.at.line;
        rule.code = table.code.text;
        rule.otherwiseSuffix = table.otherwiseSuffix.text;
    }
}

/// Rules that name each other cannot go round: each id is longer than the one before.
void JobMaker::CheckHoleRule(const HoleRuleTable& table, const Ids& ids) {
    const PlacedText& suffix = table.otherwiseSuffix;
    const bool hasLength = table.shape == eHoleShapeSlot || table.shape == eHoleShapeRectangular;
    RequireOf(
        table, hasLength || table.lengths.empty(), "\"lengths\" is only for slots and rectangles");
    RequireOf(table,
              !table.isPairMust || !table.pairs.empty(),
              "\"pair_must\" is of no use without \"pairs\"");
    const bool isCode = CheckCode(table.code, CodeOf::kHole);
    // A hole whose code contains the group's counts as a hole of a group.
    RequireOf(
        table,
        !isCode || table.group.code.isEmpty() || NeverContains(table.code.text, table.group.code),
        "\"code\" must not contain the group's code");
    if (suffix.text.isEmpty())
        return;
    Require(!table.excludedMembers.empty(),
            suffix.at,
            "\"otherwise_suffix\" is of no use without \"excluded_members\"");
    ids.Find({table.id.text + suffix.text, suffix.at}, m_faults);
}

void JobMaker::TakeCornerNotches() {
    Ids ids("[[corner_notch]]");
    for (const CornerNotchTable& table : m_document.cornerNotches) {
        ids.Add(table.id, m_faults);
        CheckCornerNotch(table);
        CornerNotch& notch = m_job.cornerNotches.emplace_back(table);
        notch.id = table.id.text;
        notch.line = table.at.line;
        notch.across = static_cast<NotchCorner>(table.across);
        SCheckNotch& definition = notch.definition;
        definition.id = static_cast<std::int64_t>(m_job.cornerNotches.size()) - 1;
        definition.face = table.face;
        definition.vertexCount = static_cast<int>(table.corners);
        definition.mustBeRect = table.isRectangle;
        definition.mustBeParallelToAxis = table.isParallel;
        definition.outPutFormat = table.output.text;
        for (const NotchValue value : table.values)
            definition.valueSelectors.append(static_cast<int>(value));
    }
}

void JobMaker::CheckCornerNotch(const CornerNotchTable& table) {
    RequireOf(table,
              !table.isRectangle || table.corners == kCornersOfRectangle,
              "a rectangle has 4 corners, not " + std::to_string(table.corners));
    CheckNotchValues(table);
    constexpr ZetFormatArg::Kind kNumber = ZetFormatArg::Kind::kDouble;
    const std::wstring_view format = table.output.text.view();
    const bool fits = table.values.size() == kSizesOfNotch
                          ? camdata::detail::FormatTakes(format, {kNumber, kNumber})
                          : camdata::detail::FormatTakes(format, {kNumber, kNumber, kNumber});
    Require(fits || format.empty(),
            table.output.at,
            "\"output\" needs a conversion such as %.1f for each of \"values\"; a percent sign is "
            "written %%");
}

void JobMaker::CheckNotchValues(const CornerNotchTable& table) {
    const std::size_t count = table.values.size();
    bool areInPlace = true;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isSize =
            table.values[i] == NotchValue::kLength || table.values[i] == NotchValue::kWidth;
        areInPlace = areInPlace && isSize == (i < kSizesOfNotch);
    }
    RequireOf(table,
              count == 0 || (count >= kSizesOfNotch && count <= kMostNotchValues && areInPlace),
              "\"values\" are two of \"length\" and \"width\", then at most one of \"x\", "
              "\"corner_x\", \"y\" and \"corner_y\"");
}

void JobMaker::TakeTrims() {
    Ids ids("[[trim]]");
    for (const TrimTable& table : m_document.trims) {
        ids.Add(table.id, m_faults);
        CheckCode(table.code, CodeOf::kTrim);
        TrimRule& trim = m_job.trims.emplace_back(table);
        trim.id = table.id.text;
        trim.code = table.code.text;
    }
}

void JobMaker::TakeAssemblies() {
    Ids mains("[[assembly]]");
    for (const AssemblyTable& table : m_document.assemblies)
        mains.Add(table.main, m_faults);
    for (const AssemblyTable& table : m_document.assemblies) {
        Assembly& assembly = m_job.assemblies.emplace_back();
        assembly.mark = table.main.text;
        assembly.line = table.main.at.line;
        assembly.column = table.main.at.column;
        for (std::size_t i = 0; i < table.parts.size(); ++i) {
            CheckPart(table, i, mains);
            const PlacedText& mark = table.parts[i].mark;
            assembly.parts.push_back(
                {mark.text, table.parts[i].count, mark.at.line, mark.at.column});
        }
    }
}

void JobMaker::CheckPart(const AssemblyTable& assembly, std::size_t part, const Ids& mains) {
    const PlacedText& mark = assembly.parts[part].mark;
    if (mark.text.isEmpty())
        return;
    Require(mains.PositionOf(mark.text) == m_document.assemblies.size(),
            mark.at,
            Quoted(mark.text) + " is a main part: it cannot be a part of an assembly");
    const auto isSame = [&](const AssemblyPartTable& other) {
        return other.mark.text == mark.text;
    };
    const auto end = assembly.parts.begin() + static_cast<std::ptrdiff_t>(part);
    Require(std::none_of(assembly.parts.begin(), end, isSame),
            mark.at,
            Quoted(mark.text) + " stands a second time in this assembly: give its \"count\"");
}

void JobMaker::TakeInfo() {
    const AdditionalInfoTable& table = m_document.additionalInfo;
    m_job.infoHeaders[kAllMembersBlock] = table.members;
    m_job.infoHeaders[kNonStandardBlock] = table.nonStandard;
    m_job.infoHeaders[kErrorsBlock] = table.errors;
    m_job.infoHeaders[kWarningsBlock] = table.warnings;
    m_job.infoOrder.assign(table.order.begin(), table.order.end());
    m_job.hasInfoTotals = table.hasTotals;
}

}  // namespace

Job ResolveJob(const JobDocument& document,
               const std::filesystem::path& jobFile,
               JobFaults& faults) {
    return JobMaker(document, jobFile, faults).Make();
}

}  // namespace job
