#include "plugin/output/JobRun.h"

#include "cutting/Verification.h"
#include "job/ControlCharacters.h"
#include "job/FileNames.h"
#include "job/Remnants.h"
#include "job/Utf8Path.h"
#include "plugin/output/CuttingList.h"
#include "plugin/output/LineEnds.h"
#include "plugin/rules/ArrayFromVector.h"
#include "plugin/rules/MemberTypeSearch.h"
#include "threads/OrderedWork.h"

#include "camdata/platform/system/Clock.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/HostBridge.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace plugin {

namespace {

/// Text of a path, with a separator at the end when it is that of a folder ("" as its last name).
ZetString TextOf(const std::filesystem::path& path) {
    return ZetString::fromUtf8(job::Utf8FromPath(path));
}

/// Without its folder: the same wherever the job lies.
ZetString FileNameOf(const ZetString& file) {
    const std::size_t slash = file.view().rfind(L'/');
    return slash == std::wstring_view::npos ? file : ZetString(file.view().substr(slash + 1));
}

/// The path from the root, as the system writes it; "" is the folder at hand. Without "." only: a
/// folder before ".." may be a link.
std::filesystem::path AbsoluteOf(const std::filesystem::path& path) {
    std::filesystem::path whole;
    for (const std::filesystem::path& name : std::filesystem::absolute(path.empty() ? "." : path))
        if (name != ".")
            whole /= name;
    return whole.make_preferred();
}

/// The day that counts as today while a run of a job with a date lives.
CalendarDate g_dateOfRun;

CalendarDate DateOfRun() {
    return g_dateOfRun;
}

CMxGroups GroupOf(const job::Group& source, const GroupSection& section, std::size_t position) {
    ZetArray<long> files;
    for (const std::size_t file : source.files)
        files.append(static_cast<long>(file));
    CMxGroups group;
    group.setValues(static_cast<long>(position),
                    std::move(files),
                    ArrayFromVector(section.headerLines),
                    ArrayFromVector(source.sortKeys));
    // Whether the group is nested or not: plans are made profile by profile.
    group.SetNesting(false);
    return group;
}

/// Members with the same group, profile name and material are planned together. Lent by one of
/// them.
using PlanKey = std::tuple<std::size_t, std::wstring_view, std::wstring_view>;

PlanKey KeyOf(const JobMember& member) {
    return {member.GetGroupPosition(), member.SeeProfileName(), member.GetMaterial().view()};
}

void Count(const MemberOutcome& member, GroupResult& group) {
    ++group.members;
    group.invalid += member.isValid ? 0 : 1;
    group.withWarnings += member.hasWarnings ? 1 : 0;
    group.nonStandard += member.isNonStandard ? 1 : 0;
}

/// Why the given plan is not for this stock, and what to do.
ZetString DescribeConflict(const NestedMembers& members, const BarStock& stock) {
    const bool isNamed = members.group.plan.has_value();
    return ZetString::format(
        L"group \"%s\": %s cuts %s from bars of %.0f without kerf, grips, price and quantity only; "
        L"take away the %s, or the [[stock]] of %.0f",
        members.group.id,
        isNamed ? L"plan = \"given\"" : L"\"reserve\", which needs plan = \"given\",",
        members.profileName,
        CMxNestParts().GetNestLength(),
        isNamed ? L"plan" : L"reserve",
        stock.length);
}

}  // namespace

/// A member of a run. Knows what was ordered, which assemblies use up, and lets the run be
/// cancelled before each member that is written.
class JobRun::Member final : public JobMember {
  public:
    Member(const JudgingRules& rules,
           const job::MemberType& type,
           ZetNCCreator& creator,
           const ZetString& file)
        : JobMember(rules, type, creator), m_fileName(FileNameOf(file)) {}

    /// Before it is written. `position` is that among the members of the run.
    void Join(JobRun& run, std::size_t position) {
        m_run = &run;
        m_position = position;
    }

    void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                        ZetArray<CMxPeilaib*>& secondaryParts) override {
        if (m_run->m_isCancelled && m_run->m_isCancelled())
            throw Cancelled();
        JobMember::WriteMemOutPut(files, secondaryParts);
        m_run->m_written.push_back(m_position);
        if (!m_run->m_areRecordsKept)
            m_run->m_records.Drop(m_storedRecords);
    }

    void StoreRecords(TextBlocks& blocks) { m_storedRecords = blocks.Add(TakeRecords().text); }
    /// Of its NC file, without folder; "" when it was not told.
    const ZetString& GetFileName() const { return m_fileName; }
    /// When it is made.
    void AddSteelTo(SteelTotals& steel) const {
        if (GetOutcome().IsMade())
            steel.Add(GetOrdered(), GetLength(), GetWeightPerMetre());
    }
    MemberResult GetResult() const {
        const long left = IsSecondaryPart() ? GetQty() : 0;
        MemberResult result;
        result.mark = GetMark();
        result.profileName = GetProfileName();
        result.group = GetGroupPosition();
        result.quantity = GetOrdered();
        result.outcome = GetOutcome();
        result.left = left;
        return result;
    }

  private:
    std::string_view GetRecordText() const override {
        return m_run->m_areRecordsKept ? JobMember::GetRecordText() : m_storedRecords.View();
    }

    JobRun* m_run = nullptr;
    TextBlocks::Place m_storedRecords;  ///< unless the member keeps them
    ZetString m_fileName;
    std::size_t m_position = 0;
};

JobRun::DateOfLife::DateOfLife(const std::optional<CalendarDate>& date) : m_isSet(date) {
    if (!m_isSet)
        return;
    g_dateOfRun = *date;
    SetClock(DateOfRun);
}

JobRun::DateOfLife::~DateOfLife() {
    if (m_isSet)
        SetClock(nullptr);
}

JobRun::JobRun(const job::Job& job, const std::filesystem::path& folder)
    : m_job(job), m_rules(job), m_date(job.date), m_bars(job) {
    UseTolerances(job.tolerances);
    const ZetString location = TextOf(AbsoluteOf(folder) / "");
    m_accumulator.SetProjectInfo(new JobProjectInformation(job, location));
    m_accumulator.SetManuFacturerDetails(
        job.project.fileName, location, location + job.project.fileName);
}

JobRun::~JobRun() = default;

JobProjectInformation& JobRun::GetJobProjectInfo() {
    return static_cast<JobProjectInformation&>(*m_accumulator.GetProjectInfo());
}

CProjectInformation& JobRun::GetProjectInfo() {
    return GetJobProjectInfo();
}

JobRun::Judged::Judged(Added added) : m_added(added) {}
JobRun::Judged::Judged(Judged&&) noexcept = default;
JobRun::Judged& JobRun::Judged::operator=(Judged&&) noexcept = default;
JobRun::Judged::~Judged() = default;

std::size_t JobRun::Judged::GetGroupPosition() const {
    return m_member->GetGroupPosition();
}

void JobRun::BeginJudging() {
    m_rules.SetFormatTexts(GetJobProjectInfo().MakeFormatTexts(m_job));
}

JobRun::Judged JobRun::Judge(ZetNCEntity& entity,
                             const ZetString& source,
                             const Observer& observer,
                             long notedFeatures) const {
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.create();
    const job::MemberType* type = m_rules.FindMemberType(creator);
    if (type == nullptr)
        return Judged(Added::kNoType);
    if (type->isSkipped)
        return Judged(Added::kSkipped);
    if (!HasNumbers(*type, GetProfileNameFromCreator(&creator)))
        return Judged(Added::kNoSize);
    const ZetString file = job::EscapeControls(source);
    Judged judged(Added::kAdded);
    judged.m_member = std::make_unique<Member>(m_rules, *type, creator, file);
    Member& member = *judged.m_member;
    if (m_job.reports.areSourcesTold)
        member.SetSource(file);
    member.SetNotedFeatures(notedFeatures);
    member.ValidateMember();
    // Parts of assemblies are settled as they are written: a main part lacks what was not selected.
    if (!member.getIsPartOfAssy())
        member.SettleReport();
    if (observer)
        observer(member, *type, creator);
    member.MakeOutput();
    if (!m_areRecordsKept)
        member.ReleaseOperations();
    judged.m_ledger = member.TakeLedger();
    return judged;
}

void JobRun::Take(Judged judged) {
    if (judged.m_added != Added::kAdded)
        return;
    judged.m_member->Join(*this, m_members.size());
    if (!m_areRecordsKept)
        judged.m_member->StoreRecords(m_records);
    m_members.push_back(std::move(judged.m_member));
}

JobRun::Added JobRun::Add(ZetNCEntity& entity) {
    if (m_members.empty())
        BeginJudging();
    Judged judged = Judge(entity);
    const Added added = judged.GetAdded();
    Take(std::move(judged));
    return added;
}

// ---- writing ------------------------------------------------------------------------------------

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

bool JobRun::Write(const std::filesystem::path& folder, const CancelCheck& isCancelled) {
    const ZetString folderText = TextOf(folder / "");
    try {
        WriteMembers(folderText, isCancelled);
    } catch (const Cancelled&) {
        return false;
    }
    if (m_job.hasInfoTotals && m_faults.isEmpty())
        WriteTotals(folderText);
    EndLines(folder);
    WriteFormattedFiles(folder);
    MakePlans();
    // A wrong plan reaches no file.
    if (!m_planFaults.empty() || !m_formatConflicts.empty())
        return true;
    if (IsAnyGroupNested()) {
        WriteCuttingList(folderText + GetFileName(job::kCuttingListEnding));
        WriteCuttingTable(folderText + GetFileName(job::kCuttingTableEnding));
    }
    if (!m_job.cutting.remnants.empty())
        WriteRemnants(folderText + GetFileName(job::kRemnantsEnding));
    return true;
}

void JobRun::WriteMembers(const ZetString& folder, const CancelCheck& isCancelled) {
    const Writing writing(*this, isCancelled);
    SetUpFiles(folder);
    SetUpGroups();
    SetUpAdditionalInfo();
    for (const auto& member : m_members)
        m_accumulator.Append(member.get());
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
    m_sections = GroupSections(m_job, m_members);
    for (const auto& member : m_members)
        member->SetGroupID(static_cast<long>(m_sections.PositionOf(*member)));
    ZetArray<int> indexMap;
    ZetArray<CMxGroups> groups;
    for (const GroupSection& section : m_sections.GetSections()) {
        const auto position = static_cast<std::size_t>(groups.length());
        indexMap.append(static_cast<int>(position));
        groups.append(GroupOf(m_job.groups[section.group], section, position));
    }
    m_accumulator.appendGroups(std::move(indexMap), std::move(groups));
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
    for (const GroupResult& group : GetGroupResults()) {
        lines.append(line(m_job.groups[group.group].id, group.steel));
        all += group.steel;
    }
    lines.append(line(L"all", all));
    lines.append(head(L"Profiles"));
    for (const ProfileResult& profile : GetProfileResults())
        lines.append(line(job::EscapeControls(profile.profileName), profile.steel));
    const ZetString name = folder + GetFileName(m_job.files[job::kInfoFile].ending);
    ZetFileAccess file;
    file.Open(name, L"a");
    CMxUtil::AsArrStrPrint(lines, &file);
    CloseFile(file, name);
}

/// The library ends lines with LF: its files are changed when they are whole.
void JobRun::EndLines(const std::filesystem::path& folder) {
    for (const job::OutputFile& file : m_job.files) {
        if (file.lineEnds == job::LineEnds::kLf || !file.IsOfRecords() || !m_faults.isEmpty())
            continue;
        const ZetString name = GetFileName(file.ending);
        const std::filesystem::path path = folder / job::PathFromUtf8(name.toUtf8());
        if (const std::error_code fault = EndLinesWithCrLf(path))
            m_faults.append({TextOf(path), ZetFileFault::Operation::kWrite, fault.value()});
    }
}

// ---- formats ------------------------------------------------------------------------------------

/// The members of a file as they were written, group by group.
std::vector<FormattedGroup> JobRun::GroupsOf(std::size_t file) const {
    std::map<std::size_t, std::size_t> placeOfSection;
    std::vector<FormattedGroup> groups;
    for (const std::size_t written : m_written) {
        const Member& member = *m_members[written];
        const job::Group& group = m_job.groups[member.GetGroupPosition()];
        const bool isInFile =
            std::find(group.files.begin(), group.files.end(), file) != group.files.end();
        if (!isInFile || !member.IsMade())
            continue;
        const std::size_t position = m_sections.PositionOf(member);
        const GroupSection& section = m_sections.GetSections()[position];
        const auto [at, isNew] = placeOfSection.insert({position, groups.size()});
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

// ---- cutting list -------------------------------------------------------------------------------

bool JobRun::IsAnyGroupNested() const {
    return std::any_of(m_job.groups.begin(), m_job.groups.end(), [](const job::Group& group) {
        return group.isNested;
    });
}

void JobRun::MakePlans() {
    std::map<PlanKey, std::vector<std::size_t>> together;
    for (const std::size_t position : m_written) {
        const Member& member = *m_members[position];
        if (member.IsNested() && member.IsMade())
            together[KeyOf(member)].push_back(position);
    }
    std::vector<const std::vector<std::size_t>*> profiles;
    for (const auto& [key, members] : together)
        profiles.push_back(&members);
    const unsigned atATime = m_bars.AreLimited() ? 1 : m_threads;
    threads::ResultsInOrder<ProfilePlan> plans(
        profiles.size(), atATime, [&](std::size_t i) { return PlanFor(*profiles[i]); });
    for (std::size_t i = 0; i < profiles.size(); ++i)
        TakePlan(plans.Next());
}

void JobRun::TakePlan(ProfilePlan plan) {
    plan.firstBar = m_nextBar;
    m_nextBar += TotalsOf(plan).bars;
    for (const std::string& fault : cutting::FindFaults(plan.demand, plan.cutStocks, plan.plan))
        m_planFaults.push_back(NameOfProfile(plan) + L": " + ZetString::fromUtf8(fault));
    for (std::size_t part = 0; part < plan.plan.uncut.size(); ++part)
        if (plan.plan.uncut[part] > 0)
            m_members[plan.parts[part].member]->TellUncut(static_cast<long>(plan.plan.uncut[part]));
    m_bars.Take(plan, GetProjectInfo().GetFileName());
    m_plans.push_back(std::move(plan));
}

ProfilePlan JobRun::PlanFor(const std::vector<std::size_t>& members) const {
    Member& first = *m_members[members.front()];
    PartsOfProfile parts;
    parts.group = first.GetGroupPosition();
    parts.profileName = first.GetProfileName();
    parts.material = first.GetMaterial();
    for (const std::size_t position : members) {
        const Member& member = *m_members[position];
        parts.parts.push_back({member.GetMark(), member.GetFileName(), position});
        parts.demand.push_back({PieceLength(member.GetLength()), std::max(member.GetQty(), 0L)});
        if (parts.weightPerMetre == 0.0)
            parts.weightPerMetre = member.GetWeightPerMetre();
    }
    const NestedMembers together = first.GetNestedMembers();
    std::vector<BarStock> stocks = StocksFor(m_job, together);
    m_bars.Limit(stocks);
    return MakeProfilePlan(
        m_job,
        std::move(parts),
        PlanOf(m_job, together),
        std::move(stocks),
        {m_planner, [&](ZetArray<CMxParts> pieces) { return first.MakeNests(std::move(pieces)); }});
}

void JobRun::WriteCuttingList(const ZetString& name) {
    ZetFileAccess file;
    file.Open(name, L"w");
    for (const ProfilePlan& plan : m_plans)
        plugin::WriteCuttingList(plan, m_job.groups[plan.group].id, file);
    CloseFile(file, name);
}

void JobRun::WriteCuttingTable(const ZetString& name) {
    ZetFileAccess file;
    file.Open(name, L"w");
    file.WriteUtf8(CuttingTable::MakeHead());
    for (const ProfilePlan& plan : m_plans)
        CuttingTable::WriteRows(plan, m_job.groups[plan.group].id, file);
    CloseFile(file, name);
}

void JobRun::WriteRemnants(const ZetString& name) {
    ZetFileAccess file;
    file.Open(name, L"w");
    file.WriteUtf8(job::MakeRemnantTable(m_bars.GetRemnants()));
    CloseFile(file, name);
}

void JobRun::CloseFile(ZetFileAccess& file, const ZetString& name) {
    file.Close();
    if (file.GetFault())
        m_faults.append({name, file.GetFault()->operation, file.GetFault()->systemError});
}

/// The library knows nothing but lengths, and one of them only.
std::vector<ZetString> JobRun::FindPlanConflicts() const {
    std::set<ZetString> conflicts;
    std::set<PlanKey> known;
    for (const auto& member : m_members) {
        if (!member->IsNested() || !known.insert(KeyOf(*member)).second)
            continue;
        const NestedMembers members = member->GetNestedMembers();
        if (PlanOf(m_job, members) != job::BarPlan::kGiven)
            continue;
        for (const BarStock& stock : StocksFor(m_job, members))
            if (!IsLibraryStock(stock))
                conflicts.insert(DescribeConflict(members, stock));
    }
    return {conflicts.begin(), conflicts.end()};
}

// ---- results ------------------------------------------------------------------------------------

std::vector<MemberResult> JobRun::TakeMemberResults() {
    std::vector<MemberResult> results;
    for (const auto& member : m_members) {
        results.push_back(member->GetResult());
        results.back().findings = member->TakeFindings();
        results.back().setAside = member->TakeSetAside();
        results.back().notes = member->TakeNotes();
        results.back().records = member->TakeRecords();
    }
    return results;
}

std::vector<GroupResult> JobRun::GetGroupResults() const {
    std::map<std::size_t, GroupResult> groups;
    for (const auto& member : m_members) {
        GroupResult& group = groups[member->GetGroupPosition()];
        Count(member->GetOutcome(), group);
        member->AddSteelTo(group.steel);
    }
    std::vector<GroupResult> results;
    for (auto& [position, group] : groups) {
        group.group = position;
        results.push_back(group);
    }
    return results;
}

std::vector<ProfileResult> JobRun::GetProfileResults() const {
    std::map<ZetString, SteelTotals> profiles;
    for (const auto& member : m_members)
        if (member->GetOutcome().IsMade())
            member->AddSteelTo(profiles[member->GetProfileName()]);
    std::vector<ProfileResult> results;
    for (auto& [name, steel] : profiles)
        results.push_back({name, steel});
    return results;
}

}  // namespace plugin
