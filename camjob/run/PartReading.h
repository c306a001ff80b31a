#pragma once

#include "camjob/run/Accounts.h"
#include "camjob/run/MemberDrawings.h"
#include "camjob/run/NcFiles.h"
#include "camjob/run/RunReport.h"
#include "dstv/NcAssemblies.h"
#include "dstv/NcHost.h"
#include "dstv/NcReader.h"
#include "job/Job.h"
#include "plugin/output/JobRun.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace camjob {

/// What the part of an NC file was judged to be, and all that is kept of it.
struct JudgedPart {
    plugin::JobRun::Judged result;
    FeatureAccounts accounts = {};                      ///< of a member
    std::vector<NcFiles::Draft> ncFiles = {};           ///< the same
    std::optional<MemberDrawings::Drawn> drawing = {};  ///< the same, when drawings are told
    std::optional<RunFault> unmatched = {};             ///< why no member type takes it
    plugin::AccountNumbers notMade = {};                ///< when it is no member
};

/// What an NC file comes to without a look at any other. Only what is asked for later: what one
/// thread has taken and another gives back, both wait for.
struct ReadPart {
    std::string file;                   ///< UTF-8
    std::vector<RunFault> faults = {};  ///< why it cannot be read; then there is nothing else
    std::vector<dstv::NcNote> notes = {};
    ZetString mark = {};
    long markLine = 0;  ///< of the text that tells the mark; 0: it is none of the file
    HeaderPlaces lines = {};
    /// Of a part that assemblies name.
    std::unique_ptr<dstv::NcFileEntity> entity = {};
    std::optional<JudgedPart> judged = {};  ///< nothing: it waits for the parts of its assembly
};

/// About an NC file; `line` 0: the file as a whole.
RunFault FaultAt(const std::string& file, long line, const ZetString& text);

/// Takes NC files of a job as far as each goes by itself. Changes nothing that is shared: several
/// threads may use it at a time.
class PartReading {
  public:
    /// All must outlive it. The run has begun to judge.
    PartReading(const job::Job& job,
                const plugin::JobRun& run,
                const dstv::NcAssemblies& assemblies,
                bool areDrawingsTold);

    /// `file`: UTF-8.
    ReadPart Read(const std::string& file) const;
    /// Lets go of the features of the entity.
    JudgedPart Judge(dstv::NcFileEntity& entity, const std::string& file) const;

  private:
    RunFault FaultOfType(const dstv::NcHeader& header, const std::string& file) const;

    const job::Job& m_job;
    const dstv::NcReading m_reading;
    const plugin::JobRun& m_run;
    const dstv::NcAssemblies& m_assemblies;
    const bool m_areDrawingsTold;
};

}  // namespace camjob
