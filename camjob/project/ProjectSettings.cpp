#include "camjob/project/ProjectSettings.h"

#include "camjob/console/Paths.h"
#include "camjob/console/ReportJson.h"
#include "job/FileNames.h"
#include "job/IsoDate.h"
#include "job/SystemError.h"

#include "camdata/platform/system/Clock.h"
#include "camdata/platform/system/ZetFileAccess.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <system_error>

namespace camjob {

namespace {

namespace fs = std::filesystem;

/// Changes when an older program could not read the file.
constexpr const char* kSchema = "camjob-settings/1";

/// What was kept of a value when the settings were written.
struct KeptOrigin {
    std::string saved;  ///< as it is read from the settings file
    std::string said;   ///< by the job
    std::string since;  ///< "": the value was the job's
};
using KeptOrigins = std::map<std::string, KeptOrigin>;

std::string InMinutes(std::chrono::system_clock::time_point time) {
    using namespace std::chrono;
    const sys_days day = floor<days>(time);
    const year_month_day date = day;
    const auto minutes = duration_cast<std::chrono::minutes>(time - day).count();
    return ZetString::format(L"%04d-%02u-%02u %02d:%02d UTC",
                             static_cast<int>(date.year()),
                             static_cast<unsigned>(date.month()),
                             static_cast<unsigned>(date.day()),
                             static_cast<int>(minutes / 60),
                             static_cast<int>(minutes % 60))
        .toUtf8();
}

std::string Now() {
    return InMinutes(std::chrono::system_clock::now());
}

std::string TimeOf(const fs::path& file) {
    std::error_code fault;
    const fs::file_time_type time = fs::last_write_time(file, fault);
    using namespace std::chrono;
    return InMinutes(time_point_cast<system_clock::duration>(
        file_clock::to_sys(fault ? file_clock::now() : time)));
}

std::string TextIn(const Json& object, const char* key) {
    const auto at = object.find(key);
    return at == object.end() || !at->is_string() ? "" : at->get<std::string>();
}

/// Empty when the file is not there, or is another one.
KeptOrigins ReadOrigins(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const Json document = Json::parse(file, nullptr, false);
    KeptOrigins origins;
    if (!document.is_object() || TextIn(document, "schema") != kSchema)
        return origins;
    const auto values = document.find("values");
    if (values == document.end() || !values->is_object())
        return origins;
    for (const auto& [key, value] : values->items())
        if (value.is_object())
            origins[key] = {TextIn(value, "saved"), TextIn(value, "job"), TextIn(value, "since")};
    return origins;
}

/// A date in its one form. Older settings have it as the system wrote it.
std::optional<ZetString> Normalized(ValueKind kind, const ZetString& text) {
    if (kind != ValueKind::kDate || job::ParseIsoDate(text))
        return text;
    const std::optional<CalendarDate> date = ParseDate(text);
    return date ? std::optional(job::IsoDate(*date)) : std::nullopt;
}

/// What is wrong with a value of the settings file; "" for nothing.
std::string FaultOf(std::size_t value, const ZetString& text) {
    const std::string name = "\"" + std::string(kProjectValues[value].key) + "\"";
    if (!Normalized(kProjectValues[value].kind, text))
        return name + " is \"" + text.toUtf8() + "\", which is no day";
    const std::string fault =
        value == kFileNameValue ? job::FaultOfFileNameStart(text) : std::string();
    return fault.empty() ? "" : name + " is \"" + text.toUtf8() + "\": " + fault;
}

/// The others, left empty, stand for what the job says.
bool CanBeEmpty(std::size_t value) {
    return value != kFileNameValue && kProjectValues[value].kind != ValueKind::kDate;
}

/// Reading takes a "+" at the start of a line for the start of an entry, and one character for the
/// end of the file.
bool IsStorable(const ZetString& text) {
    return text[0] != L'+' && !text.contains(L"\n+") && !text.contains(L"\xFFFF");
}

/// What the job itself says: nothing about a date that follows the day of the run.
ProjectTexts SaidBy(const job::Job& job, const ProjectTexts& ofJob) {
    ProjectTexts said = ofJob;
    for (std::size_t i = 0; i < said.size(); ++i) {
        const auto date = kProjectValues[i].date;
        if (date != nullptr && !job.date && (job.project.*date).isEmpty())
            said[i] = {};
    }
    return said;
}

}  // namespace

ProjectSettings::ProjectSettings(const job::Job& job, const CProjectInformation& project)
    : m_files(project),
      m_settingsFile(PathFromUtf8(project.GetProjFileName().toUtf8())),
      m_originFile(
          PathFromUtf8((project.GetLocation() + job::SettingsOriginFile(job.project)).toUtf8())),
      m_ofJob(TextsOf(project)),
      m_said(SaidBy(job, m_ofJob)),
      m_texts(m_ofJob) {}

std::vector<std::string> ProjectSettings::Read() {
    std::error_code error;
    const fs::file_status status = fs::status(m_settingsFile, error);
    if (status.type() == fs::file_type::not_found)
        return {};
    if (!fs::status_known(status))
        return {"the system does not tell whether the settings are there" +
                job::ReasonBehind(error)};
    ZetFileAccess file;
    if (!file.Open(m_files.GetProjFileName(), L"r"))
        return {"the settings cannot be opened" + job::ReasonBehind(file.GetFault()->systemError)};
    file.Close();
    CProjectInformation saved = m_files;
    if (!saved.GetDetailFromFile())
        return {"the settings are damaged: they are not eight entries, each behind a \"+\""};
    return TakeFrom(TextsOf(saved));
}

std::vector<std::string> ProjectSettings::TakeFrom(const ProjectTexts& saved) {
    const KeptOrigins kept = ReadOrigins(m_originFile);
    std::vector<std::string> faults;
    bool hasJobChanged = false;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        const auto at = kept.find(kProjectValues[i].key);
        const bool isKnown = at != kept.end() && at->second.saved == saved[i].toUtf8();
        const bool isChange = isKnown ? !at->second.since.empty() : saved[i] != m_ofJob[i];
        const bool counts = isChange && (!isKnown || at->second.said == m_said[i].toUtf8());
        hasJobChanged |= isChange && !counts;
        if (!counts || (saved[i].isEmpty() && !CanBeEmpty(i)))
            continue;
        if (std::string fault = FaultOf(i, saved[i]); !fault.empty()) {
            faults.push_back(std::move(fault));
            continue;
        }
        m_texts[i] = *Normalized(kProjectValues[i].kind, saved[i]);
        m_origins[i] = {isKnown ? at->second.since : TimeOf(m_settingsFile), isKnown};
    }
    // A job that goes back to what it said does not bring back what the dialog said.
    if (hasJobChanged && faults.empty())
        WriteOrigins(saved);
    return faults;
}

std::vector<TakenSetting> ProjectSettings::GetTaken() const {
    std::vector<TakenSetting> taken;
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        if (m_texts[i] != m_ofJob[i])
            taken.push_back({kProjectValues[i].key,
                             m_texts[i],
                             m_origins[i].since,
                             m_said[i],
                             m_origins[i].isCertain});
    return taken;
}

std::string ProjectSettings::Keep(const ProjectTexts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const bool isOld = texts[i] == m_texts[i] && !m_origins[i].since.empty();
        if (texts[i] == m_ofJob[i])
            m_origins[i] = {};
        else
            m_origins[i] = {isOld ? m_origins[i].since : Now(), true};
    }
    m_texts = texts;
    return Write();
}

/// A text of the job that the settings file cannot hold is left out of it: it does not count there.
std::string ProjectSettings::Write() const {
    ProjectTexts stored = m_texts;
    for (std::size_t i = 0; i < stored.size(); ++i)
        if (m_origins[i].since.empty() && !IsStorable(stored[i]))
            stored[i] = {};
    CProjectInformation settings = m_files;
    SetTexts(settings, stored);
    if (const std::optional<FileFault> fault = settings.WriteSettings())
        return m_files.GetProjFileName().toUtf8() + ": cannot be written" +
               job::ReasonBehind(fault->systemError);
    CProjectInformation saved = m_files;
    if (!saved.GetDetailFromFile() || TextsOf(saved) != stored)
        return m_files.GetProjFileName().toUtf8() + ": the settings cannot be read back";
    return WriteOrigins(stored);
}

std::string ProjectSettings::WriteOrigins(const ProjectTexts& stored) const {
    Json values = Json::object();
    for (std::size_t i = 0; i < stored.size(); ++i)
        values[kProjectValues[i].key] = {
            {"saved", stored[i].toUtf8()},
            {"job",   m_said[i].toUtf8()},
            {"since", m_origins[i].since}
        };
    const Json document = {
        {"schema", kSchema},
        {"values", values }
    };
    std::ofstream file(m_originFile, std::ios::binary);
    file << Dump(document, 1) << "\n";
    file.close();
    return file.fail() ? Utf8FromPath(m_originFile) + ": cannot be written" : "";
}

}  // namespace camjob
