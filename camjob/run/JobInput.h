#pragma once

#include "camjob/run/KnownMarks.h"
#include "camjob/run/MemberDrawings.h"
#include "camjob/run/NcFiles.h"
#include "camjob/run/PartReading.h"
#include "camjob/run/RunReport.h"
#include "dstv/NcAssemblies.h"
#include "dstv/NcHost.h"
#include "job/Job.h"
#include "plugin/output/JobRun.h"

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace camjob {

/// Hands the parts of a job's NC files to a run, in the order of the files.
///
/// A part is let go of as soon as it has been judged. A main part waits for the parts of its
/// assembly, and those behind it with it.
class JobInput {
  public:
    /// Job, run and drawings must outlive the input. `files`: how many will be taken at most.
    /// `drawings` null: none are needed.
    JobInput(const job::Job& job, plugin::JobRun& run, std::size_t files, MemberDrawings* drawings);

    /// Reads a file, and judges it unless it waits for others. Several threads may each read one.
    ReadPart Read(const std::string& file) const { return m_reading.Read(file); }
    /// The next file.
    void Take(ReadPart read);
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
    struct Part : ReadPart {
        std::size_t position;  ///< of the file
    };
    template <typename T>
    struct Placed {
        std::size_t position;
        T value;
    };
    using PlacedFault = Placed<RunFault>;

    void Hold(Part part);
    bool IsReady(const Part& part) const;
    void TakeFirst();
    void AddMember(Part& part);
    void AddOther(const Part& part);
    /// `line` of the file; 0: the file as a whole.
    void AddFault(const Part& part, long line, const ZetString& text);
    void AddMissingPart(const ZetString& mark);
    void AddNote(std::size_t position, const std::string& file, const dstv::NcNote& note);
    template <typename T>
    static std::vector<T> InOrder(std::vector<Placed<T>> list);
    std::vector<PlacedFault>& ListFor(job::WhenNot what) {
        return what == job::WhenNot::kRefuse ? m_faults : m_leftOut;
    }

    const job::Job& m_job;
    plugin::JobRun& m_run;
    MemberDrawings* m_drawings;
    dstv::NcAssemblies m_assemblies;
    const PartReading m_reading;
    RunInput m_counts;
    NcFiles m_ncFiles;
    std::size_t m_position = 0;
    std::deque<Part> m_held;
    std::vector<std::unique_ptr<dstv::NcFileEntity>> m_assemblyParts;
    KnownMarks m_marks;  ///< by member
    std::vector<MemberFile> m_memberFiles;
    std::vector<FeatureAccounts> m_memberAccounts;
    std::vector<Placed<RunUnmadeFile>> m_unmadeFiles;
    std::vector<RunNote> m_notes;
    std::vector<PlacedFault> m_faults;
    std::vector<PlacedFault> m_leftOut;
};

}  // namespace camjob
