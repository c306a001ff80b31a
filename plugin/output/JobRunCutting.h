#pragma once

#include "plugin/output/JobRun.h"
#include "plugin/output/ProfilePlan.h"
#include "threads/OrderedWork.h"

#include <cstddef>
#include <future>
#include <vector>

namespace plugin {

/// Makes all that tells of members together, when they are settled and in order: plans, the files
/// that tell these, and how much steel it is.
class JobRun::Cutting {
  public:
    enum class Begin {
        kAtOnce,  ///< beside other work, in threads that only read members; where there are any
        kInFinish,
    };

    /// `folder` of the files.
    Cutting(JobRun& run, ZetString folder, Begin begin);
    /// Before it is finished: nothing more is begun.
    ~Cutting();
    Cutting(const Cutting&) = delete;
    Cutting& operator=(const Cutting&) = delete;

    /// Waits until all is done, and works along. Tells members of the pieces that are not cut, and
    /// the run of files that could not be written.
    void Finish();

  private:
    using Profiles = std::vector<std::vector<std::size_t>>;

    static Profiles ProfilesOf(const JobRun& run);
    void Cut();
    void MakeAll();

    JobRun& m_run;
    const ZetString m_folder;
    const unsigned m_threads;  ///< without one that has other work
    /// Bars in hand that one plan takes are not there for the next: no thread may begin it before
    /// they are taken.
    const bool m_isOneByOne;
    const Profiles m_profiles;  ///< positions of members, as they are written
    threads::ResultsInOrder<ProfilePlan> m_plans;
    FileFaults m_faults;
    std::future<void> m_cutting;  ///< of a thread beside the caller's; not valid: there is none
};

}  // namespace plugin
