#pragma once

#include "job/Job.h"
#include "plugin/output/BarsInHand.h"
#include "plugin/output/GroupSections.h"
#include "plugin/output/JobProjectInformation.h"
#include "plugin/output/ProfilePlan.h"
#include "plugin/output/SteelTotals.h"
#include "plugin/output/TextBlocks.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/JudgingRules.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/platform/host/ZetNCEntity.h"
#include "camdata/platform/system/Clock.h"
#include "camdata/project/CProjectInformation.h"
#include "camdata/util/FileFault.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace plugin {

/// One member of a run, for its table.
struct MemberResult {
    ZetString mark;
    ZetString profileName;
    std::size_t group = 0;  ///< position in Job::groups
    long quantity = 0;      ///< as ordered
    MemberOutcome outcome;
    /// Of a single part: the pieces that no assembly takes; below 0: the pieces that assemblies
    /// lack. 0 for all others.
    long left = 0;
    std::vector<Finding> findings;
    std::vector<SetAsideFeature> setAside;
    std::vector<FeatureNote> notes;
    MemberRecords records;  ///< in the machine files when it is made; unless SetRecordsKept(false)

    /// It has a block in the machine files.
    bool IsMade() const { return outcome.IsMade(); }
};

/// One group of a run that has members.
struct GroupResult {
    std::size_t group = 0;  ///< position in Job::groups
    long members = 0;
    SteelTotals steel;  ///< of the members that are made
    long invalid = 0;
    long withWarnings = 0;
    long nonStandard = 0;
};

/// What the members of one profile come to.
struct ProfileResult {
    ZetString profileName;
    SteelTotals steel;
};

/// One run of a job: takes the members one by one, then writes all files.
///
/// Sets the process-wide tolerances and, for a job with a date, the clock; at the end of its life
/// the clock is the system's again. One at a time. What fails in the host raises HostComError.
///
/// Members may be judged in several threads. Write makes plans, and what tells them, in others;
/// all else is done in one.
///
/// Writing is in JobRunFiles.cpp, plans and their lists in JobRunPlans.cpp.
class JobRun {
    class Member;

  public:
    /// What became of an entity.
    enum class Added {
        kAdded,
        kSkipped,  ///< the job leaves members of its type out
        kNoType,   ///< no member type fits
        kNoSize,   ///< its type finds no number in the profile name where it looks for one
    };

    /// `folder` is where the output will stand in the end, with the settings file beside it.
    /// Nothing is read or written yet. The job must outlive the run.
    JobRun(const job::Job& job, const std::filesystem::path& folder);
    ~JobRun();
    JobRun(const JobRun&) = delete;
    JobRun& operator=(const JobRun&) = delete;

    /// Lent; for settings and dialog. The names of the output files begin with its file name.
    CProjectInformation& GetProjectInfo();

    /// Sees a member that was judged, while it still knows its holes and notches.
    using Observer = std::function<void(
        const JobMember& member, const job::MemberType& type, const ZetNCCreator& creator)>;
    /// What became of an entity. It is no member of the run yet, and must not outlive it.
    class Judged {
      public:
        explicit Judged(Added added);
        Judged(Judged&&) noexcept;
        Judged& operator=(Judged&&) noexcept;
        ~Judged();

        Added GetAdded() const { return m_added; }
        /// Of its features; empty unless it is a member.
        Ledger TakeLedger() { return std::move(m_ledger); }
        /// Position in Job::groups, when it is a member.
        std::size_t GetGroupPosition() const;

      private:
        friend JobRun;

        Added m_added;
        std::unique_ptr<Member> m_member;
        Ledger m_ledger;
    };
    /// Before the first member is judged, and when the project information is as it will stay.
    void BeginJudging();
    /// Judges an entity, and makes what will be written of it. Changes
    /// nothing of the run: several threads may each judge one of their own. The entity, and those
    /// attached to it, are needed during the call only.
    /// `source` is the name of its NC file, for reports; `notedFeatures` is how many features of
    /// the file its NC data do not have.
    Judged Judge(ZetNCEntity& entity,
                 const ZetString& source = {},
                 const Observer& observer = {},
                 long notedFeatures = 0) const;
    /// Makes it the next member of the run, when it is one.
    void Take(Judged judged);
    /// All of that at once.
    Added Add(ZetNCEntity& entity);
    long GetCount() const { return static_cast<long>(m_members.size()); }

    /// False: lets go of the records of each member as soon as they are written.
    void SetRecordsKept(bool areKept) { m_areRecordsKept = areKept; }

    /// Makes the plans "least" instead of the planner of `cutting/`.
    void SetPlanner(cutting::Planner planner) { m_planner = std::move(planner); }

    /// That Write may use, with the one that calls it; one without it.
    void SetThreads(unsigned threads) { m_threads = threads; }
    /// For what takes little time for each member: a few are done sooner than a thread is started.
    /// When all are taken.
    unsigned GetThreadsForMembers() const;

    /// Files of the job that take no part, a line each; the additional information lists them.
    void SetLeftOut(std::vector<ZetString> lines) { m_leftOut = std::move(lines); }

    /// Asked before each member that is written; true ends the run.
    using CancelCheck = std::function<bool()>;
    /// Writes all files into `folder`, which must be there; the names end as job::OutputEndings.
    /// False when it was cancelled: all files are closed then, and what they hold is of no use.
    /// Once per run. `onMembersWritten` is called when the files of the members are whole and
    /// closed, while there may be plans to be made.
    bool Write(const std::filesystem::path& folder,
               const CancelCheck& isCancelled = {},
               const std::function<void()>& onMembersWritten = {});
    /// What could not be opened, written or closed.
    const ZetArray<FileFault>& GetFileFaults() const { return m_faults; }

    /// `position`: in the order in which they were added. After Write; the lists of each once.
    MemberResult TakeMemberResult(std::size_t position);
    /// By position. After Write.
    std::vector<GroupResult> GetGroupResults() const;
    /// By name. After Write.
    const std::vector<ProfileResult>& GetProfileResults() const { return m_profiles; }
    /// Why members that were added cannot be cut as the job says; one sentence each.
    std::vector<ZetString> FindPlanConflicts() const;
    /// Why a file as a whole, or one of its groups, cannot be written in its format; a sentence.
    struct FormatConflict {
        std::size_t file = 0;  ///< position in the job's
        ZetString text;
    };
    /// What Write has written is of no use when there is one.
    const std::vector<FormatConflict>& GetFormatConflicts() const { return m_formatConflicts; }
    /// By group, then by profile and material; empty without nested groups that have valid members.
    /// After Write.
    const std::vector<ProfilePlan>& GetPlans() const { return m_plans; }
    /// The same, once: the run has none then.
    std::vector<ProfilePlan> TakePlans() { return std::move(m_plans); }
    /// What was wrong with a plan, one sentence each: a fault of the program. What Write has
    /// written is of no use then.
    const std::vector<ZetString>& GetPlanFaults() const { return m_planFaults; }

  private:
    class Writing;
    class Cutting;
    struct Cancelled {};

    /// Makes the date of a job today, as long as it lives.
    class DateOfLife {
      public:
        explicit DateOfLife(const std::optional<CalendarDate>& date);
        ~DateOfLife();
        DateOfLife(const DateOfLife&) = delete;
        DateOfLife& operator=(const DateOfLife&) = delete;

      private:
        bool m_isSet;
    };

    /// With a separator at the end when it is that of a folder ("" as its last name).
    static ZetString TextOf(const std::filesystem::path& path);
    JobProjectInformation& GetJobProjectInfo();
    ZetString GetFileName(const ZetString& ending);
    void WriteMembers(const ZetString& folder, const CancelCheck& isCancelled);
    void SetUpFiles(const ZetString& folder);
    ZetArray<ZetString> MakeHeaderOf(const job::OutputFile& file);
    void WriteFormattedFiles(const std::filesystem::path& folder);
    std::string MakeFormattedFile(std::size_t file,
                                  std::vector<FormattedGroup> groups,
                                  std::vector<FormatFault>& faults);
    std::vector<FormattedGroup> GroupsOf(std::size_t file) const;
    void SetUpGroups();
    void OrderMembers();
    void SumSteel();
    void WriteTotals(const ZetString& folder);
    void SetUpAdditionalInfo();
    void EndLines(const std::filesystem::path& folder, const job::OutputFile& file);
    bool IsAnyGroupNested() const;
    std::optional<std::size_t> NumberOfPlan(const Member& member);
    /// Several threads may each make one.
    ProfilePlan PlanFor(const std::vector<std::size_t>& members, unsigned threads) const;
    void TakePlan(ProfilePlan plan);
    void TellUncut(const ProfilePlan& plan);
    using FileFaults = ZetArray<FileFault>;
    FileFaults WriteCuttingFiles(const ZetString& folder, unsigned threads);
    FileFaults WriteCuttingList(const ZetString& name) const;
    FileFaults WriteCuttingTable(const ZetString& name) const;
    void WriteRemnants(const ZetString& name);
    static FileFaults WriteFile(const ZetString& name,
                                const wchar_t* mode,
                                const std::function<void(ZetFileAccess&)>& write);

    const job::Job& m_job;
    JudgingRules m_rules;
    DateOfLife m_date;
    std::vector<std::unique_ptr<Member>> m_members;
    /// Members with the same group, profile name and material are planned together. The names are
    /// lent by the first of them.
    using PlanKey = std::tuple<std::size_t, std::wstring_view, std::wstring_view>;
    struct PlannedTogether {
        std::size_t number = 0;
        const Member* first = nullptr;
    };
    std::map<PlanKey, PlannedTogether> m_numberOfPlan;
    bool m_hasPartsOfAssemblies = false;
    GroupSections m_sections;          ///< numbered from Write on
    std::vector<std::size_t> m_order;  ///< from Write on: positions of members, as they are written
    CMxCamGlobAcc m_accumulator;
    bool m_areRecordsKept = true;
    TextBlocks m_records;  ///< of each member until it is written; unless they are kept
    std::vector<ZetString> m_leftOut;
    ZetArray<FileFault> m_faults;
    BarsInHand m_bars;
    unsigned m_threads = 1;
    cutting::Planner m_planner = &cutting::MakeLeastPlan;
    std::map<std::size_t, SteelTotals> m_steelOfGroups;  ///< of those that have members
    std::vector<ProfileResult> m_profiles;
    std::vector<ProfilePlan> m_plans;
    long m_nextBar = 1;
    std::vector<ZetString> m_planFaults;
    std::vector<FormatConflict> m_formatConflicts;
    CancelCheck m_isCancelled;
};

}  // namespace plugin
