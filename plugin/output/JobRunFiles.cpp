#include "job/ControlCharacters.h"
#include "job/FileNames.h"
#include "job/Utf8Path.h"
#include "plugin/output/JobRunCutting.h"
#include "plugin/output/JobRunMember.h"
#include "plugin/output/LineEnds.h"
#include "plugin/rules/ArrayFromVector.h"

#include "camdata/member/MemberSorting.h"
#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

// The files of a run that hold its members.

namespace plugin {

namespace {

CMxGroups GroupOf(const job::Group& source, const GroupSection& section, std::size_t position) {
    ZetArray<long> files;
    for (const std::size_t file : source.files)
        files.append(static_cast<long>(file));
    CMxGroups group;
    group.setValues(static_cast<long>(position),
                    std::move(files),
                    ArrayFromVector(section.headerLines),
                    {});  // the run has its members in order
    // Whether the group is nested or not: plans are made profile by profile.
    group.SetNesting(false);
    return group;
}

}  // namespace

/// However the writing of members ends, the run lets go of the caller's question and of the files:
/// those that an exception left open end with their groups.
class JobRun::Writing {
  public:
    Writing(JobRun& run, const CancelCheck& isCancelled) : m_run(run) {
        run.m_isCancelled = isCancelled;
    }
    ~Writing() {
        m_run.m_isCancelled = nullptr;
        m_run.m_accumulator.appendFileGroups({});
    }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

  private:
    JobRun& m_run;
};

bool JobRun::Write(const std::filesystem::path& folder,
                   const CancelCheck& isCancelled,
                   const std::function<void()>& onMembersWritten) {
    const ZetString folderText = TextOf(folder / "");
    SetUpGroups();
    OrderMembers();
    std::optional<Cutting> cutting;
    // Parts of assemblies are settled only as they are written.
    if (!m_hasPartsOfAssemblies && GetThreadsForMembers() > 1)
        cutting.emplace(*this, folderText, Cutting::Begin::kAtOnce);
    try {
        WriteMembers(folderText, isCancelled);
    } catch (const Cancelled&) {
        return false;
    }
    for (std::size_t file = 0; file < m_job.files.size(); ++file)
        if (file != job::kInfoFile)
            EndLines(folder, m_job.files[file]);
    WriteFormattedFiles(folder);
    if (onMembersWritten)
        onMembersWritten();
    if (!cutting)
        cutting.emplace(*this, folderText, Cutting::Begin::kInFinish);
    cutting->Finish();
    if (m_job.hasInfoTotals && m_faults.isEmpty())
        WriteTotals(folderText);
    EndLines(folder, m_job.files[job::kInfoFile]);
    if (!m_job.cutting.remnants.empty() && m_planFaults.empty())
        WriteRemnants(folderText + GetFileName(job::kRemnantsEnding));
    return true;
}

void JobRun::WriteMembers(const ZetString& folder, const CancelCheck& isCancelled) {
    const Writing writing(*this, isCancelled);
    SetUpFiles(folder);
    SetUpAdditionalInfo();
    for (const std::size_t position : m_order)
        m_accumulator.Append(m_members[position].get());
    m_accumulator.WriteOutPut();
    m_faults = m_accumulator.GetFileFaults();
    // Its lines, of all members, are written, too.
    m_accumulator.SetAddInfo(CMxAddlInfo());
}

ZetString JobRun::GetFileName(const ZetString& ending) {
    return GetProjectInfo().GetFileName() + ending;
}

void JobRun::SetUpFiles(const ZetString& folder) {
    ZetArray<CMxFileGroups> files;
    for (const job::OutputFile& source : m_job.files) {
        const ZetString name = GetFileName(source.ending);
        CMxFileGroups file;
        // The library makes no file that has a format of its own.
        file.setValues(
            files.length(), folder + name, name, MakeHeaderOf(source), false, source.IsOfRecords());
        files.append(std::move(file));
    }
    m_accumulator.appendFileGroups(std::move(files));
}

ZetArray<ZetString> JobRun::MakeHeaderOf(const job::OutputFile& file) {
    ZetArray<ZetString> header = ArrayFromVector(file.headerLines);
    if (file.hasProjectHeader)
        header.appendAll(GetJobProjectInfo().MakeHeaderLines());
    return header;
}

/// To the library each section is a group, whose ID is its position everywhere.
void JobRun::SetUpGroups() {
    m_sections.Number();
    ZetArray<int> indexMap;
    ZetArray<CMxGroups> groups;
    for (const GroupSection& section : m_sections.GetSections()) {
        const auto position = static_cast<std::size_t>(groups.length());
        indexMap.append(static_cast<int>(position));
        groups.append(GroupOf(m_job.groups[section.group], section, position));
    }
    m_accumulator.appendGroups(std::move(indexMap), std::move(groups));
}

/// As the library would sort them, so that plans need not wait until it has written them.
void JobRun::OrderMembers() {
    std::vector<ZetArray<CMxPeilaib*>> sections(m_sections.GetSections().size());
    for (const auto& member : m_members) {
        const std::size_t section = m_sections.PositionOf(*member);
        member->SetGroupID(static_cast<long>(section));
        sections[section].append(member.get());
    }
    m_order.reserve(m_members.size());
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const job::Group& group = m_job.groups[m_sections.GetSections()[i].group];
        // The library keeps the order: neither its groups nor the members have keys.
        camdata::detail::SortMembersBy(ArrayFromVector(group.sortKeys), sections[i]);
        for (const CMxPeilaib* member : sections[i])
            m_order.push_back(static_cast<const Member*>(member)->GetPosition());
    }
}

void JobRun::SetUpAdditionalInfo() {
    ZetArray<ZetArray<ZetString>> blocks;
    for (const std::vector<ZetString>& header : m_job.infoHeaders)
        blocks.append(ArrayFromVector(header));
    ZetArray<long> order;
    for (const std::size_t block : m_job.infoOrder)
        order.append(static_cast<long>(block));
    if (!m_leftOut.empty()) {
        order.append(blocks.length());
        blocks.append({L"Files left out"});
        for (const ZetString& line : m_leftOut)
            blocks.last().append(job::EscapeControls(line));
    }
    CMxAddlInfo info;
    info.SetAddInfoArr(std::move(blocks), std::move(order));
    m_accumulator.SetAddInfo(std::move(info));
}

/// Behind the library's lists, which come between gaps like this one.
void JobRun::WriteTotals(const ZetString& folder) {
    const auto line = [](const ZetString& name, const SteelTotals& steel) {
        return ZetString::format(
            L"%-40s%10d%12s%12s", name, steel.pieces, steel.ShowMetres(), steel.ShowTonnes());
    };
    const auto head = [](const wchar_t* name) {
        return ZetString::format(L"%-40s%10s%12s%12s",
                                 ZetString(name),
                                 ZetString(L"pieces"),
                                 ZetString(L"metres"),
                                 ZetString(L"tonnes"));
    };
    ZetArray<ZetString> lines = {L"  ", L"  ", L"  ", head(L"Groups")};
    SteelTotals all;
    for (const auto& [group, steel] : m_steelOfGroups) {
        lines.append(line(m_job.groups[group].id, steel));
        all += steel;
    }
    lines.append(line(L"all", all));
    lines.append(head(L"Profiles"));
    for (const ProfileResult& profile : m_profiles)
        lines.append(line(job::EscapeControls(profile.profileName), profile.steel));
    const ZetString name = folder + GetFileName(m_job.files[job::kInfoFile].ending);
    m_faults.appendAll(
        WriteFile(name, L"a", [&](ZetFileAccess& file) { CMxUtil::AsArrStrPrint(lines, &file); }));
}

/// The library ends lines with LF: its files are changed when they are whole.
void JobRun::EndLines(const std::filesystem::path& folder, const job::OutputFile& file) {
    if (file.lineEnds == job::LineEnds::kLf || !file.IsOfRecords() || !m_faults.isEmpty())
        return;
    const ZetString name = GetFileName(file.ending);
    const std::filesystem::path path = folder / job::PathFromUtf8(name.toUtf8());
    if (const std::error_code fault = EndLinesWithCrLf(path))
        m_faults.append({TextOf(path), ZetFileFault::Operation::kWrite, fault.value()});
}

// ---- formats ------------------------------------------------------------------------------------

/// The members of a file as they were written, group by group.
std::vector<FormattedGroup> JobRun::GroupsOf(std::size_t file) const {
    std::map<std::size_t, std::size_t> placeOfSection;
    std::vector<FormattedGroup> groups;
    for (const std::size_t position : m_order) {
        const Member& member = *m_members[position];
        const job::Group& group = m_job.groups[member.GetGroupPosition()];
        const bool isInFile =
            std::find(group.files.begin(), group.files.end(), file) != group.files.end();
        if (!isInFile || !member.IsMade())
            continue;
        const std::size_t ofSection = m_sections.PositionOf(member);
        const GroupSection& section = m_sections.GetSections()[ofSection];
        const auto [at, isNew] = placeOfSection.insert({ofSection, groups.size()});
        if (isNew)
            groups.push_back({group.id, section.name, section.headerLines, {}});
        groups[at->second].members.push_back(member.GetFormatted(*m_job.files[file].format));
    }
    return groups;
}

std::string JobRun::MakeFormattedFile(std::size_t file,
                                      std::vector<FormattedGroup> groups,
                                      std::vector<FormatFault>& faults) {
    const job::OutputFile& source = m_job.files[file];
    const ZetArray<ZetString> header = MakeHeaderOf(source);
    return m_rules.GetFormats()[*source.format].WriteFile(
        groups, {header.begin(), header.end()}, m_rules.GetFormatTexts(), faults);
}

/// What a file cannot express reaches none: the run tells it.
void JobRun::WriteFormattedFiles(const std::filesystem::path& folder) {
    m_rules.SetFormatTexts(GetJobProjectInfo().MakeFormatTexts(m_job));
    for (std::size_t file = 0; file < m_job.files.size(); ++file) {
        if (!m_job.files[file].format)
            continue;
        std::vector<FormatFault> faults;
        const std::string bytes = MakeFormattedFile(file, GroupsOf(file), faults);
        for (const FormatFault& fault : faults)
            m_formatConflicts.push_back(
                {file,
                 ZetString::format(L"file \"%s\": its format cannot express %s",
                                   m_job.files[file].id,
                                   fault.text)});
        const std::filesystem::path path =
            folder / job::PathFromUtf8(GetFileName(m_job.files[file].ending).toUtf8());
        if (const std::error_code fault = WriteBytes(path, bytes))
            m_faults.append({TextOf(path), ZetFileFault::Operation::kWrite, fault.value()});
    }
}

}  // namespace plugin
