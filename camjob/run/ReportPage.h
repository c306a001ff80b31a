#pragma once

#include "camjob/console/OutputStream.h"
#include "camjob/run/RunReport.h"
#include "job/Job.h"
#include "report/page/RunPage.h"

#include "camdata/project/CProjectInformation.h"

namespace camjob {

/// The page of a run as HTML. The report, the job and the project information must outlive it.
class ReportPage {
  public:
    ReportPage(const RunReport& report, const job::Job& job, const CProjectInformation& project);

    /// Once, before the page is written. Asks for no files of the report.
    void AddMembersAndPlans();
    /// Files without a size in the report are those still to be written.
    void Write(OutputStream& out);

  private:
    void AddTables();

    const RunReport& m_report;
    const job::Job& m_job;
    const CProjectInformation& m_project;
    report::RunPage m_page;
};

}  // namespace camjob
