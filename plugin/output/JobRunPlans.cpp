#include "cutting/Verification.h"
#include "job/Remnants.h"
#include "plugin/output/CuttingList.h"
#include "plugin/output/JobRunCutting.h"
#include "plugin/output/JobRunMember.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

// The cutting plans of a run, and the files that tell them.

namespace plugin {

namespace {

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

bool JobRun::IsAnyGroupNested() const {
    return std::any_of(m_job.groups.begin(), m_job.groups.end(), [](const job::Group& group) {
        return group.isNested;
    });
}

/// Its number, when it is cut from bars.
std::optional<std::size_t> JobRun::NumberOfPlan(const Member& member) {
    if (!member.IsNested())
        return std::nullopt;
    const PlanKey key = {
        member.GetGroupPosition(), member.SeeProfileName(), member.GetMaterial().view()};
    return m_numberOfPlan.try_emplace(key, PlannedTogether{m_numberOfPlan.size(), &member})
        .first->second.number;
}

/// A single profile is shared out itself.
JobRun::Cutting::Cutting(JobRun& run, ZetString folder, Begin begin)
    : m_run(run),
      m_folder(std::move(folder)),
      m_threads(begin == Begin::kAtOnce ? run.GetThreadsForMembers() - 1
                                        : run.GetThreadsForMembers()),
      m_isOneByOne(run.m_bars.AreLimited()),
      m_profiles(ProfilesOf(run)),
      m_plans(
          m_profiles.size(),
          m_isOneByOne ? 1 : run.m_threads,
          [this](std::size_t profile) {
              return m_run.PlanFor(m_profiles[profile], m_profiles.size() == 1 ? m_threads : 1);
          },
          begin == Begin::kAtOnce ? threads::OrderedWork::Taker::kIsHelped
                                  : threads::OrderedWork::Taker::kAlone) {
    if (begin == Begin::kInFinish)
        return;
    try {
        m_cutting = std::async(std::launch::async, [this] { Cut(); });
    } catch (const std::exception&) {
        // The system has no thread to give: in Finish.
    }
}

JobRun::Cutting::~Cutting() {
    m_plans.Stop();
}

/// However it ends, nobody waits for plans that are not begun.
void JobRun::Cutting::Cut() {
    try {
        MakeAll();
    } catch (...) {
        m_plans.Stop();
        throw;
    }
}

void JobRun::Cutting::MakeAll() {
    for (std::size_t i = 0; i < m_profiles.size(); ++i)
        m_run.TakePlan(m_plans.Next());
    // A wrong plan reaches no file.
    if (m_run.m_planFaults.empty())
        m_faults = m_run.WriteCuttingFiles(m_folder, m_threads);
    m_run.SumSteel();
}

void JobRun::Cutting::Finish() {
    if (m_cutting.valid()) {
        if (!m_isOneByOne)
            m_plans.Help();
        m_cutting.get();
    } else {
        Cut();
    }
    m_run.m_faults.appendAll(m_faults);
    for (const ProfilePlan& plan : m_run.m_plans)
        m_run.TellUncut(plan);
}

JobRun::Cutting::Profiles JobRun::Cutting::ProfilesOf(const JobRun& run) {
    Profiles together(run.m_numberOfPlan.size());
    for (const std::size_t position : run.m_order) {
        const Member& member = *run.m_members[position];
        if (member.GetNumberOfPlan() && member.IsMade())
            together[*member.GetNumberOfPlan()].push_back(position);
    }
    Profiles profiles;
    for (const auto& [key, planned] : run.m_numberOfPlan)
        if (!together[planned.number].empty())
            profiles.push_back(std::move(together[planned.number]));
    return profiles;
}

void JobRun::TakePlan(ProfilePlan plan) {
    plan.firstBar = m_nextBar;
    m_nextBar += TotalsOf(plan).bars;
    for (const std::string& fault : cutting::FindFaults(plan.demand, plan.cutStocks, plan.plan))
        m_planFaults.push_back(NameOfProfile(plan) + L": " + ZetString::fromUtf8(fault));
    m_bars.Take(plan, GetProjectInfo().GetFileName());
    m_plans.push_back(std::move(plan));
}

void JobRun::TellUncut(const ProfilePlan& plan) {
    for (std::size_t part = 0; part < plan.plan.uncut.size(); ++part)
        if (plan.plan.uncut[part] > 0)
            m_members[plan.parts[part].member]->TellUncut(static_cast<long>(plan.plan.uncut[part]));
}

unsigned JobRun::GetThreadsForMembers() const {
    constexpr std::size_t kWorthAThread = 500;
    return m_members.size() < kWorthAThread ? 1 : m_threads;
}

/// What they are called comes last: the making of the plan takes much memory.
ProfilePlan JobRun::PlanFor(const std::vector<std::size_t>& members, unsigned threads) const {
    const Member& first = *m_members[members.front()];
    PartsOfProfile parts;
    parts.group = first.GetGroupPosition();
    parts.profileName = first.GetProfileName();
    parts.material = first.GetMaterial();
    parts.demand.reserve(members.size());
    for (const std::size_t position : members) {
        const Member& member = *m_members[position];
        parts.demand.push_back({PieceLength(member.GetLength()), std::max(member.GetQty(), 0L)});
        if (parts.weightPerMetre == 0.0)
            parts.weightPerMetre = member.GetWeightPerMetre();
    }
    const NestedMembers together = first.GetNestedMembers();
    std::vector<BarStock> stocks = StocksFor(m_job, together);
    m_bars.Limit(stocks);
    ProfilePlan plan =
        MakeProfilePlan(m_job,
                        std::move(parts),
                        PlanOf(m_job, together),
                        std::move(stocks),
                        {m_planner,
                         [&](ZetArray<CMxParts> pieces, const camdata::detail::NestTaker& take) {
                             first.MakeNests(std::move(pieces), take);
                         }},
                        threads);
    plan.parts.reserve(members.size());
    for (const std::size_t position : members)
        plan.parts.push_back({m_members[position]->GetMark().toUtf8(),
                              m_members[position]->GetFileName(),
                              position});
    return plan;
}

JobRun::FileFaults JobRun::WriteFile(const ZetString& name,
                                     const wchar_t* mode,
                                     const std::function<void(ZetFileAccess&)>& write) {
    ZetFileAccess file;
    file.Open(name, mode);
    write(file);
    file.Close();
    if (!file.GetFault())
        return {};
    return {
        {name, file.GetFault()->operation, file.GetFault()->systemError}
    };
}

JobRun::FileFaults JobRun::WriteCuttingFiles(const ZetString& folder, unsigned threads) {
    if (!IsAnyGroupNested())
        return {};
    const ZetString list = folder + GetFileName(job::kCuttingListEnding);
    const ZetString table = folder + GetFileName(job::kCuttingTableEnding);
    FileFaults faults;
    FileFaults ofTable;
    threads::DoAll(
        {[&] { ofTable = WriteCuttingTable(table); }, [&] { faults = WriteCuttingList(list); }},
        threads);
    faults.appendAll(ofTable);
    return faults;
}

JobRun::FileFaults JobRun::WriteCuttingList(const ZetString& name) const {
    return WriteFile(name, L"w", [&](ZetFileAccess& file) {
        for (const ProfilePlan& plan : m_plans)
            plugin::WriteCuttingList(plan, m_job.groups[plan.group].id, file);
    });
}

JobRun::FileFaults JobRun::WriteCuttingTable(const ZetString& name) const {
    return WriteFile(name, L"w", [&](ZetFileAccess& file) {
        file.WriteUtf8(CuttingTable::MakeHead());
        for (const ProfilePlan& plan : m_plans)
            CuttingTable::WriteRows(plan, m_job.groups[plan.group].id, file);
    });
}

void JobRun::WriteRemnants(const ZetString& name) {
    m_faults.appendAll(WriteFile(name, L"w", [&](ZetFileAccess& file) {
        file.WriteUtf8(job::MakeRemnantTable(m_bars.GetRemnants()));
    }));
}

/// The library knows nothing but lengths, and one of them only.
std::vector<ZetString> JobRun::FindPlanConflicts() const {
    std::set<ZetString> conflicts;
    for (const auto& [key, planned] : m_numberOfPlan) {
        const NestedMembers members = planned.first->GetNestedMembers();
        if (PlanOf(m_job, members) != job::BarPlan::kGiven)
            continue;
        for (const BarStock& stock : StocksFor(m_job, members))
            if (!IsLibraryStock(stock))
                conflicts.insert(DescribeConflict(members, stock));
    }
    return {conflicts.begin(), conflicts.end()};
}

}  // namespace plugin
