#pragma once

#include "camjob/run/RunReport.h"
#include "dstv/NcHost.h"
#include "job/Job.h"
#include "plugin/rules/JobMember.h"
#include "report/page/RunPage.h"

#include "camdata/platform/host/ZetNCCreator.h"
#include "camdata/project/CProjectInformation.h"

#include <string>
#include <vector>

namespace camjob {

/// The page of a run in the making. Draws each member while it is judged, since nobody knows its
/// holes afterwards.
class ReportPage {
  public:
    /// The job must outlive the page.
    explicit ReportPage(const job::Job& job) : m_job(job) {}

    /// Members in the order of the run's.
    void Draw(const dstv::NcFileEntity& entity,
              const plugin::JobMember& member,
              const job::MemberType& type,
              const ZetNCCreator& creator);
    /// The page, once the report has members, groups and files. Once.
    std::string MakeHtml(const RunReport& report, const CProjectInformation& project);

  private:
    /// What a report does not know of a member.
    struct Member {
        double length = 0.0;
        std::string drawing;
    };

    void AddMembers(const RunReport& report);

    const job::Job& m_job;
    std::vector<Member> m_members;
    report::RunPage m_page;
};

}  // namespace camjob
