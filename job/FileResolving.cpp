#include "job/FileNames.h"
#include "job/FormatFile.h"
#include "job/FormatResolving.h"
#include "job/JobMaker.h"
#include "job/MemberLine.h"
#include "job/MessageTexts.h"
#include "job/NcNames.h"
#include "job/Utf8Path.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>

namespace job {

namespace {

constexpr const wchar_t* kRecordsName = L"records";
constexpr const wchar_t* kNcName = L"dstv";
constexpr std::string_view kFormatEnding = ".toml";

/// What a run keeps for itself in its output folder.
constexpr const wchar_t* kOwnFolder = L".camjob";

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

}  // namespace

void JobMaker::CheckHeadings(const PlacedTable& table, const std::vector<ZetString>& lines) {
    RequireOf(table,
              std::none_of(lines.begin(), lines.end(), BeginsMember),
              "no line of \"header\" can begin with the word \"member\": members do");
}

void JobMaker::TakeFiles() {
    JobIds given("[[file]]");
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
    if (!ShowsHeader(*format, {FormatPart::kFileStart, FormatPart::kFileEnd}))
        RefuseHeader(table,
                     "the format " + Quoted(table.format.text) +
                         " has no {header} in a line for file_start or file_end");
    if (table.lineEnds)
        format->lineEnd = table.lineEnds == LineEnds::kCrLf ? "\r\n" : "\n";
    m_job.files[position].format = m_job.formats.size();
    m_job.files[position].formatLine = table.format.at.line;
    m_job.files[position].formatColumn = table.format.at.column;
    m_job.formats.push_back(std::move(*format));
}

/// Of a file that has no place for it.
void JobMaker::RefuseHeader(const FileTable& table, const std::string& reason) {
    const std::string text = " goes not with this format: " + reason;
    Require(table.headerLines.empty(), table.PlaceOf("header"), "\"header\"" + text);
    Require(!table.hasProjectHeader || table.keys.count("project_header") == 0,
            table.PlaceOf("project_header"),
            "\"project_header\"" + text);
}

void JobMaker::RequireMembers(const FileTable& table, std::size_t position) {
    Require(position == kOrderFile || position >= kFirstOwnFile,
            table.format.at,
            "\"format\": the file " + Quoted(table.id.text) +
                " takes no members: only \"order\" and files of the job's own do");
}

void JobMaker::TakeNcOutput(const FileTable& table, std::size_t position) {
    RequireMembers(table, position);
    RefuseHeader(table, "NC files have no header lines");
    Require(table.ending.at.line == 0,
            table.ending.at,
            "\"ending\" goes not with format = \"dstv\": the files are named by \"folder\" and "
            "\"names\"");
    NcOutput& output = m_job.files[position].nc.emplace();
    if (table.folder.at.line > 0)
        output.folder = table.folder.text.toUtf8();
    Require(SmallLetters(ZetString::fromUtf8(output.folder)) != kOwnFolder,
            table.folder.at,
            "\"folder\": camjob keeps this folder for itself");
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
                     "\"format\": there is no format " + Quoted(text) + Suggest(text, words) +
                         "; the name of a format file ends with .toml");
        return std::nullopt;
    }
    const std::filesystem::path file = m_folder / PathFromUtf8(text);
    const auto bytes = ReadFormatBytes(file);
    if (const auto* fault = std::get_if<TextFileFault>(&bytes)) {
        m_faults.Add(name.at, "\"format\": the file " + Quoted(text) + ": " + fault->text);
        return std::nullopt;
    }
    MachineFormat format =
        ReadFormatText(std::get<std::string>(bytes), Utf8FromPath(file.stem()), faults);
    format.file = name.text;
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

}  // namespace job
