#include "plugin/output/JobRun.h"

#include "job/ControlCharacters.h"
#include "job/Utf8Path.h"
#include "plugin/output/JobRunMember.h"
#include "plugin/rules/MemberTypeSearch.h"

#include "camdata/platform/system/Clock.h"
#include "camdata/util/HostBridge.h"

#include <map>
#include <string_view>
#include <utility>

namespace plugin {

namespace {

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

void Count(const MemberOutcome& member, GroupResult& group) {
    ++group.members;
    group.invalid += member.isValid ? 0 : 1;
    group.withWarnings += member.hasWarnings ? 1 : 0;
    group.nonStandard += member.isNonStandard ? 1 : 0;
}

}  // namespace

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

ZetString JobRun::TextOf(const std::filesystem::path& path) {
    return ZetString::fromUtf8(job::Utf8FromPath(path));
}

JobRun::JobRun(const job::Job& job, const std::filesystem::path& folder)
    : m_job(job), m_rules(job), m_date(job.date), m_sections(job), m_bars(job) {
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
    // All that can be done while other threads judge the next ones.
    Member& member = *judged.m_member;
    member.Join(*this, m_members.size());
    if (!m_areRecordsKept)
        member.StoreRecords(m_records);
    m_sections.Add(member);
    m_hasPartsOfAssemblies |= member.getIsPartOfAssy();
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

// ---- results ------------------------------------------------------------------------------------

MemberResult JobRun::TakeMemberResult(std::size_t position) {
    Member& member = *m_members[position];
    MemberResult result = member.GetResult();
    result.findings = member.TakeFindings();
    result.setAside = member.TakeSetAside();
    result.notes = member.TakeNotes();
    result.records = member.TakeRecords();
    return result;
}

std::vector<GroupResult> JobRun::GetGroupResults() const {
    std::map<std::size_t, GroupResult> groups;
    for (const auto& member : m_members)
        Count(member->GetOutcome(), groups[member->GetGroupPosition()]);
    std::vector<GroupResult> results;
    for (auto& [position, group] : groups) {
        group.group = position;
        group.steel = m_steelOfGroups.at(position);
        results.push_back(group);
    }
    return results;
}

/// When the members are settled; once.
void JobRun::SumSteel() {
    std::map<std::wstring_view, SteelTotals> profiles;
    for (const auto& member : m_members) {
        member->AddSteelTo(m_steelOfGroups[member->GetGroupPosition()]);
        if (member->GetOutcome().IsMade())
            member->AddSteelTo(profiles[member->SeeProfileName()]);
    }
    for (auto& [name, steel] : profiles)
        m_profiles.push_back({ZetString(name), steel});
}

}  // namespace plugin
