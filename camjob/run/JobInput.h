#pragma once

#include "camjob/run/MemberDrawings.h"
#include "camjob/run/NcFiles.h"
#include "camjob/run/RunReport.h"
#include "dstv/NcAssemblies.h"
#include "dstv/NcHost.h"
#include "dstv/NcReader.h"
#include "job/Job.h"
#include "plugin/output/JobRun.h"

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace camjob {

/// Reads the NC files of a job and hands their parts to a run, in the order of the files.
///
/// A part is let go of as soon as it has been judged. A main part waits for the parts of its
/// assembly, and those behind it with it.
class JobInput {
  public:
    /// Job, run and drawings must outlive the input. `drawings` null: none are needed.
    JobInput(const job::Job& job, plugin::JobRun& run, MemberDrawings* drawings);

    void Read(const std::filesystem::path& file);
    /// After the last file.
    void Finish();

    const RunInput& GetCounts() const { return m_counts; }
    /// Ordered by file; then what concerns the job as a whole.
    std::vector<RunFault> TakeFaults();
    /// The files that the job leaves out for their reasons, in their order.
    std::vector<RunFault> TakeLeftOut();
    /// The NC files of its members.
    NcFiles TakeNcFiles() { return std::move(m_ncFiles); }
    /// By member, in the order in which the run has them.
    std::vector<MemberFile> TakeMemberFiles() { return std::move(m_memberFiles); }
    /// The same.
    std::vector<FeatureAccounts> TakeMemberAccounts() { return std::move(m_memberAccounts); }
    /// The files without a member that could be read, in their order.
    std::vector<RunUnmadeFile> TakeUnmadeFiles();
    /// What the reader has to say, in the order of the files and their lines.
    std::vector<RunNote> TakeNotes() { return std::move(m_notes); }

  private:
    struct Part {
        std::size_t position;  ///< of the file
        std::string file;      ///< UTF-8
        std::unique_ptr<dstv::NcFileEntity> entity;
    };
    template <typename T>
    struct Placed {
        std::size_t position;
        T value;
    };
    using PlacedFault = Placed<RunFault>;

    void Hold(Part part);
    plugin::JobRun::Observer ObserverOf(const Part& part);
    bool IsReady(const Part& part) const;
    void JudgeFirst();
    void Note(const Part& part, plugin::JobRun::Added added);
    void AddMember(const Part& part, const ZetString& mark);
    void AddUnmatched(const Part& part, const dstv::NcHeader& header);
    /// `line` of the file; 0: the file as a whole.
    static RunFault FaultOf(const Part& part, long line, const ZetString& text);
    void AddFault(const Part& part, long line, const ZetString& text);
    void AddMissingPart(const ZetString& mark);
    void AddUnmade(const Part& part);
    void AddNote(std::size_t position, const std::string& file, const dstv::NcNote& note);
    template <typename T>
    static std::vector<T> InOrder(std::vector<Placed<T>> list);
    std::vector<PlacedFault>& ListFor(job::WhenNot what) {
        return what == job::WhenNot::kRefuse ? m_faults : m_leftOut;
    }

    const job::Job& m_job;
    const dstv::NcReading m_reading;
    plugin::JobRun& m_run;
    MemberDrawings* m_drawings;
    dstv::NcAssemblies m_assemblies;
    RunInput m_counts;
    NcFiles m_ncFiles;
    std::size_t m_lastGroup = 0;  ///< of the member that was judged last
    std::size_t m_position = 0;
    std::deque<Part> m_held;
    std::vector<std::unique_ptr<dstv::NcFileEntity>> m_assemblyParts;
    std::unordered_map<std::string, std::size_t> m_memberOfMark;  ///< position in m_memberFiles
    std::vector<MemberFile> m_memberFiles;
    std::vector<FeatureAccounts> m_memberAccounts;
    std::vector<Placed<RunUnmadeFile>> m_unmadeFiles;
    std::vector<RunNote> m_notes;
    std::vector<PlacedFault> m_faults;
    std::vector<PlacedFault> m_leftOut;
};

}  // namespace camjob
