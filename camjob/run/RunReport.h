#pragma once

#include "camjob/check/FindingPlace.h"
#include "camjob/compare/OutputChanges.h"
#include "camjob/project/ProjectSettings.h"
#include "camjob/run/Accounts.h"
#include "camjob/run/MemberDrawings.h"
#include "dstv/NcNote.h"
#include "plugin/output/JobRun.h"

#include "camdata/platform/text/ZetString.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace camjob {

/// How a run ended.
enum class RunStatus {
    kDone,       ///< the output is the run's
    kRefused,    ///< the job or an input is faulty; nothing was written
    kCancelled,  ///< stopped by the user; the last output is as it was
    kFailed,     ///< a file could not be written; the last output is as it was, or the text tells
    kDeclined,   ///< the user cancelled the dialog; nothing was written
    kFault,      ///< of the program, caught in time; the last output is as it was
};

/// Why a run was refused or failed, or why a file was left out, in one line.
struct RunFault {
    std::string file;     ///< UTF-8, as the user named it; "": none
    long line = 0;        ///< from 1; 0: the file as a whole
    long column = 0;      ///< from 1; 0: the line or the file as a whole
    std::string message;  ///< with the place, as people read it

    /// The message without the file, which it begins with.
    std::string TextBehindFile() const;
};

/// The NC files of a run.
struct RunInput {
    long filesRead = 0;
    long skipped = 0;  ///< their member type is left out
    long notes = 0;    ///< of the reader and of the judging
    long warnings = 0;
};

/// What the reader, or the plug-in, has to say about a file that takes part.
struct RunNote {
    std::string file;  ///< UTF-8
    dstv::NcNote note;
};

/// "part.nc1:27: warning: hole with a negative X"
std::string DescribeNote(const RunNote& note);
/// The same as a fault, with the key of the job that makes it one.
std::string DescribeRefusedNote(const RunNote& note);

/// The NC file of a member.
struct MemberFile {
    std::string name;  ///< UTF-8
    HeaderPlaces lines;
};

/// A member and its file.
struct RunMember {
    plugin::MemberResult result;
    MemberFile file;
    MemberAccounts accounts;
    /// In the order of their lines; empty when nothing tells them.
    std::vector<AccountedFeature> features;

    plugin::AccountNumbers CountAccounts() const { return accounts.Get(result.IsMade()); }
};

/// A file that could be read and takes no part: its member type is left out, or none takes it.
struct RunUnmadeFile {
    std::string file;  ///< UTF-8
    ZetString mark;
    plugin::AccountNumbers accounts;
};

/// A group, by its name in the job.
struct RunGroup {
    ZetString name;
    plugin::GroupResult result;
};
/// How its members of one profile are cut.
struct RunPlan {
    ZetString group;
    plugin::ProfilePlan plan;
};

/// A file of the output.
struct RunFile {
    std::string name;                     ///< UTF-8, with the output folder as the user named it
    std::optional<std::uintmax_t> bytes;  ///< nothing: not yet known
    std::string folder = {};  ///< of one among many alike, as `name`; "": it stands alone
};

/// All that `camjob run` says. A plain value.
struct RunReport {
    RunStatus status = RunStatus::kDone;
    std::string job;                        ///< UTF-8, as the user named it
    std::string folder;                     ///< the same; "" when the job could not be read
    ZetString name;                         ///< of the job
    bool hasFinishedEarlierOutput = false;  ///< of a run in the folder that was cut off
    std::vector<RunFault> faults;
    std::vector<RunFault> leftOut;       ///< files that take no part, because the job says so
    std::string settingsFile;            ///< UTF-8, in the folder as the user named it
    std::vector<TakenSetting> settings;  ///< taken from there; the job says something else
    RunInput input;
    std::vector<RunNote> notes;              ///< in the order of the files and their lines
    std::vector<RunUnmadeFile> unmadeFiles;  ///< in the order of the files
    std::vector<RunMember> members;          ///< in the order of the files
    MemberDrawings drawings;                 ///< by member; empty when nothing tells them
    std::vector<RunGroup> groups;
    std::vector<plugin::ProfileResult> profiles;  ///< by name; of the valid members
    std::vector<RunPlan> plans;
    std::vector<RunFile> files;
    std::optional<OutputChanges> changes;  ///< against an earlier output, when there is one to tell
    bool repeatsChanges = false;  ///< nothing differs from the output that is replaced: its changes
    std::string uncompared;       ///< why there is none, although there is an output; UTF-8

    /// Of a file of the output, as seen from its folder.
    std::string WithinFolder(const std::string& file) const;
    /// What its changes are told against, for people.
    std::string NameAgainst() const;
    /// For a run that came to no output after all.
    void DropResults();
    /// Of all groups together; its `group` means nothing.
    plugin::GroupResult SumGroups() const;
    /// Pieces that no bar is long enough or left for, by member.
    std::vector<long> FindUncut() const;
    /// Of all members. Takes no memory: the exit code goes by it when there is none left.
    long CountUncut() const;
    /// For the table of a run: files that are many alike as one, by their folder.
    std::vector<RunFile> FoldFiles() const;
    /// Of all files that could be read.
    plugin::AccountNumbers SumAccounts() const;
    int GetExitCode() const;
};

}  // namespace camjob
