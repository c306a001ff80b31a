#pragma once

#include "camjob/console/OutputStream.h"
#include "dstv/NcHost.h"
#include "job/Job.h"

#include <deque>
#include <string>
#include <vector>

namespace camjob {

/// The parts of NC files as a host offers them, with the assemblies of a job.
class HostedParts {
  public:
    /// Reads the files as the job says. Faults, and what the reader warns of, go to `err`.
    HostedParts(const std::vector<std::string>& files, const job::Job& job, OutputStream& err);

    /// Each file could be read.
    bool AreWhole() const { return m_areWhole; }
    /// In the order of the files; they live as long as this object.
    const std::vector<ZetNCEntity*>& GetEntities() const { return m_entities; }
    /// What a plug-in gets, as a table of a report.
    ZetString Describe() const;

  private:
    void Read(const std::string& file, const job::Job& job, OutputStream& err);
    void Attach(const job::Job& job, OutputStream& err);

    std::deque<dstv::NcFileEntity> m_parts;  ///< at addresses that stay
    std::vector<ZetNCEntity*> m_entities;
    bool m_areWhole = true;
};

}  // namespace camjob
