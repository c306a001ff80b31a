#pragma once

#include "camjob/disk/FlushRenameLock.h"
#include "camjob/disk/StagingDisk.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace camjob {

/// An output that could not be written; the text tells people which file and why.
class OutputFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The output of one run in a folder, replaced whole or not at all.
///
/// Files are first written to a staging folder. A commit record then says which of them take their
/// place in the folder, and which files of the last output go; from that moment on the new output
/// counts, and whatever ends the process, the next one in the folder finishes the work. All that
/// this class keeps lies in the folder ".camjob" of the folder: a lock, the staging folder, the
/// record, which stays as the list of the last output. Files that are on no list are never touched.
class StagedOutput {
  public:
    /// Touches nothing yet. The disk must outlive the output.
    StagedOutput(std::filesystem::path folder, StagingDisk& disk);
    /// Removes the staging folder of an output that was not committed.
    ~StagedOutput();
    StagedOutput(const StagedOutput&) = delete;
    StagedOutput& operator=(const StagedOutput&) = delete;

    /// Finishes what another run recorded and removes what one left unfinished. Does nothing in a
    /// folder that never had an output. True when an output was finished. Raises OutputFailure.
    bool Recover();
    /// Makes the folder when it is missing, recovers it, and makes the staging folder. Raises
    /// OutputFailure, also while another run holds the folder.
    void Begin();
    /// Where files are to be written between Begin and Commit, or in folders of it.
    const std::filesystem::path& GetStagingFolder() const { return m_staging; }
    /// Lets the disk begin with what the files of the staging folder hold so far, while more is
    /// made. Waits only where the disk has enough to do already. Never fails.
    void BeginFlush();
    /// Replaces the last output by all files of the staging folder. Raises OutputFailure: the last
    /// output is then as it was, unless the text says that the next run finishes the work.
    void Commit();

  private:
    /// Names of files in the folder, or in one of its own in it ("nc/A1.nc1"), UTF-8.
    struct Record {
        std::vector<std::string> placed;   ///< the new output, ascending
        std::vector<std::string> removed;  ///< in the last output only
    };

    /// What a record comes to, as paths.
    struct Move {
        std::filesystem::path staged;
        std::filesystem::path place;
    };
    struct Moves {
        std::vector<std::filesystem::path> removed;
        std::vector<Move> placed;
        std::vector<std::filesystem::path> folders;  ///< of the new output
        std::vector<std::filesystem::path> left;     ///< of the last output only
    };

    void CheckFolder() const;
    void Lock();
    bool Exists(const std::filesystem::path& path) const;
    Record MakeRecord() const;
    bool HasSuccessor(const std::string& name, const std::vector<std::string>& placed) const;
    void CheckFolderOf(const std::filesystem::path& file) const;
    void CheckReplaceable(const std::string& name) const;
    void CheckStaged(const Record& record) const;
    void FlushStaging(const Record& record);
    void WriteRecord(const Record& record);
    Moves MovesOf(const Record& record) const;
    void RollForward(const Moves& moves);
    void PlaceAll(const Moves& moves);
    void RemoveEmpty(const std::filesystem::path& folder);
    void DropStaging();
    std::filesystem::path PathOf(const std::string& name) const;

    Record ReadRecord(const std::filesystem::path& file) const;

    StagingDisk& m_disk;
    std::filesystem::path m_folder;
    std::filesystem::path m_own;
    std::filesystem::path m_staging;
    std::filesystem::path m_record;      ///< of a commit that is not finished
    std::filesystem::path m_lastRecord;  ///< of the last output
    FileLock m_lock;
    bool m_isStaging = false;
};

}  // namespace camjob
