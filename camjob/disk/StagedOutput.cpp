#include "camjob/disk/StagedOutput.h"

#include "camjob/console/Paths.h"
#include "job/SystemError.h"

#include <algorithm>
#include <new>
#include <set>
#include <string_view>
#include <utility>

namespace camjob {

namespace {

namespace fs = std::filesystem;

constexpr const char* kOwnFolder = ".camjob";
constexpr const char* kLockFile = "lock";
constexpr const char* kStagingFolder = "staging";
constexpr const char* kNewRecordFile = "commit.new";
constexpr const char* kRecordFile = "commit";
constexpr const char* kLastRecordFile = "output";

constexpr const char* kRecordBegin = "camjob-output/1";
constexpr const char* kRecordEnd = "end";
constexpr const char* kPlacedWord = "file ";
constexpr const char* kRemovedWord = "removed ";

constexpr const char* kUnknownStatus = "the system does not tell whether this is there";
constexpr const char* kNotComplete = "the output is not complete";
constexpr const char* kFinishesLater = "; the next run in this folder finishes it";

[[noreturn]] void Fail(const fs::path& path, const std::string& what) {
    throw OutputFailure(Utf8FromPath(path) + ": " + what);
}

void Check(const std::error_code& error, const fs::path& path, const std::string& what) {
    if (error)
        Fail(path, what + job::ReasonBehind(error));
}

/// A name that stands for a file or folder in a folder itself, on a line of its own.
bool IsPlainName(std::string_view name) {
    const bool isSpecial = name.empty() || name == "." || name == ".." || name == kOwnFolder;
    return !isSpecial && std::none_of(name.begin(), name.end(), [](char c) {
        return c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20;
    });
}

/// The same, or such a file in such a folder.
bool IsOutputName(std::string_view name) {
    const std::size_t slash = name.find('/');
    return slash == std::string_view::npos
               ? IsPlainName(name)
               : IsPlainName(name.substr(0, slash)) && IsPlainName(name.substr(slash + 1));
}

/// The folders that the names are in, each once.
std::set<std::string> FoldersOf(const std::vector<std::string>& names) {
    std::set<std::string> folders;
    for (const std::string& name : names)
        if (name.find('/') != std::string::npos)
            folders.insert(name.substr(0, name.find('/')));
    return folders;
}

std::string LinesOf(const char* word, const std::vector<std::string>& names) {
    std::string lines;
    for (const std::string& name : names)
        lines += word + name + "\n";
    return lines;
}

/// The first line of a text, which loses it. A stream would tell of memory that ends as of a line
/// that is not there.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

/// Adds the name on a line that begins with the word.
bool TakeName(std::string_view line, std::string_view word, std::vector<std::string>& names) {
    if (!line.starts_with(word) || !IsOutputName(line.substr(word.size())))
        return false;
    names.emplace_back(line.substr(word.size()));
    return true;
}

}  // namespace

StagedOutput::StagedOutput(fs::path folder, StagingDisk& disk)
    : m_disk(disk),
      m_folder(std::move(folder)),
      m_own(m_folder / kOwnFolder),
      m_staging(m_own / kStagingFolder),
      m_record(m_own / kRecordFile),
      m_lastRecord(m_own / kLastRecordFile) {}

StagedOutput::~StagedOutput() {
    if (m_isStaging)
        DropStaging();
}

/// What cannot be removed now is removed by the next run.
void StagedOutput::DropStaging() {
    try {
        m_disk.RemoveFolder(m_staging);
    } catch (const std::exception&) {
    }
}

bool StagedOutput::Recover() {
    CheckFolder();
    if (!Exists(m_own))
        return false;
    Lock();
    if (Exists(m_record)) {
        const Record record = ReadRecord(m_record);
        CheckStaged(record);
        RollForward(MovesOf(record));
        return true;
    }
    Check(m_disk.RemoveFolder(m_staging), m_staging, "what an earlier run left cannot be removed");
    return false;
}

void StagedOutput::Begin() {
    CheckFolder();
    Check(m_disk.MakeFolder(m_own), m_own, "the folder cannot be made");
    Recover();
    m_isStaging = true;
    Check(m_disk.MakeFolder(m_staging), m_staging, "the folder cannot be made");
}

void StagedOutput::BeginFlush() {
    std::vector<std::string> names;
    if (m_disk.ListFolder(m_staging, names))
        return;
    for (const std::string& name : names)
        m_disk.BeginFlush(m_staging / PathFromUtf8(name));
}

void StagedOutput::Commit() {
    const Record record = MakeRecord();
    for (const auto* names : {&record.placed, &record.removed})
        for (const std::string& name : *names)
            CheckReplaceable(name);
    FlushStaging(record);
    const Moves moves = MovesOf(record);
    WriteRecord(record);
    m_isStaging = false;
    RollForward(moves);
}

/// What is there of the way to the folder has to be folders.
void StagedOutput::CheckFolder() const {
    fs::path path = m_folder.root_path();
    for (const fs::path& name : m_folder.relative_path()) {
        path /= name;
        if (!Exists(path))
            return;
        fs::file_status status;
        const std::error_code error = m_disk.GetStatus(path, status);
        if (error == std::errc::too_many_symbolic_link_levels)
            Fail(path, "the output needs a folder, and this is a link that leads to itself");
        Check(error, path, kUnknownStatus);
        if (!fs::exists(status))
            Fail(path, "the output needs a folder, and this is a link to nothing");
        if (!fs::is_directory(status))
            Fail(path, "the output needs a folder, and this is a file");
    }
}

/// Also a link to nothing.
bool StagedOutput::Exists(const fs::path& path) const {
    fs::file_status status;
    Check(m_disk.GetLinkStatus(path, status), path, kUnknownStatus);
    return fs::exists(status);
}

void StagedOutput::Lock() {
    if (m_lock.IsTaken())
        return;
    const std::error_code error = m_lock.Take(m_own / kLockFile);
    if (error == std::errc::resource_unavailable_try_again)
        Fail(m_folder, "another camjob is writing to this folder");
    Check(error, m_folder, "the folder cannot be written to");
}

StagedOutput::Record StagedOutput::MakeRecord() const {
    Record record;
    Check(m_disk.ListFolder(m_staging, record.placed), m_staging, "the folder cannot be read");
    if (!Exists(m_lastRecord))
        return record;
    for (std::string& name : ReadRecord(m_lastRecord).placed)
        if (!HasSuccessor(name, record.placed))
            record.removed.push_back(std::move(name));
    return record;
}

/// Also under a name that is the same file's in this folder, as in one that ignores case.
bool StagedOutput::HasSuccessor(const std::string& name,
                                const std::vector<std::string>& placed) const {
    if (std::binary_search(placed.begin(), placed.end(), name))
        return true;
    return std::any_of(placed.begin(), placed.end(), [&](const std::string& successor) {
        bool areSame = false;
        Check(m_disk.AreSameFile(PathOf(name), PathOf(successor), areSame),
              PathOf(successor),
              kUnknownStatus);
        return areSame;
    });
}

/// A folder of the output can be one that is there, of whomever.
void StagedOutput::CheckFolderOf(const fs::path& file) const {
    const fs::path folder = file.parent_path();
    if (folder == m_folder || !Exists(folder))
        return;
    fs::file_status status;
    Check(m_disk.GetStatus(folder, status), folder, kUnknownStatus);
    if (!fs::is_directory(status))
        Fail(folder, "the output needs a folder, and this is a file");
}

void StagedOutput::CheckReplaceable(const std::string& name) const {
    const fs::path path = PathOf(name);
    if (!IsOutputName(name))
        Fail(path, "not a name for an output file");
    if (name.find('/') != std::string::npos)
        CheckFolderOf(path);
    if (!Exists(path))
        return;
    fs::file_status status;
    Check(m_disk.GetStatus(path, status), path, kUnknownStatus);
    if (!fs::is_regular_file(status))
        Fail(path, "cannot be replaced: it is not a file");
    constexpr fs::perms kAnyWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((status.permissions() & kAnyWrite) == fs::perms::none)
        Fail(path, "cannot be replaced: it is write-protected");
    const std::error_code error = m_disk.CheckFree(path);
    if (error == std::errc::text_file_busy)
        Fail(path, "cannot be replaced: another program has it open");
    Check(error, path, "cannot be replaced");
}

/// A file that is not in the staging folder any more has taken its place already, unless somebody
/// cleared the folder away.
void StagedOutput::CheckStaged(const Record& record) const {
    const auto isLost = [&](const std::string& name) {
        return !Exists(m_staging / PathFromUtf8(name)) && !Exists(PathOf(name));
    };
    if (!Exists(m_staging) || std::any_of(record.placed.begin(), record.placed.end(), isLost))
        Fail(m_record, "the files that this record names are gone; remove it and run again");
}

void StagedOutput::FlushStaging(const Record& record) {
    for (const std::string& name : record.placed) {
        const std::error_code error = m_disk.FlushFile(m_staging / PathFromUtf8(name));
        Check(error, PathOf(name), "cannot be written");
    }
    for (const std::string& folder : FoldersOf(record.placed))
        Check(m_disk.FlushFolder(m_staging / PathFromUtf8(folder)),
              PathOf(folder),
              "the folder cannot be written to");
    Check(m_disk.FlushFolder(m_staging), m_folder, "the folder cannot be written to");
}

void StagedOutput::WriteRecord(const Record& record) {
    const std::string text = std::string(kRecordBegin) + "\n" +
                             LinesOf(kPlacedWord, record.placed) +
                             LinesOf(kRemovedWord, record.removed) + kRecordEnd + "\n";
    const fs::path written = m_own / kNewRecordFile;
    Check(m_disk.WriteFile(written, text), m_folder, "the folder cannot be written to");
    Check(m_disk.FlushFile(written), m_folder, "the folder cannot be written to");
    Check(m_disk.Rename(written, m_record), m_folder, "the folder cannot be written to");
}

StagedOutput::Moves StagedOutput::MovesOf(const Record& record) const {
    Moves moves;
    for (const std::string& name : record.removed)
        moves.removed.push_back(PathOf(name));
    for (const std::string& name : record.placed)
        moves.placed.push_back({m_staging / PathFromUtf8(name), PathOf(name)});
    const std::set<std::string> folders = FoldersOf(record.placed);
    for (const std::string& folder : folders)
        moves.folders.push_back(PathOf(folder));
    for (const std::string& folder : FoldersOf(record.removed))
        if (folders.count(folder) == 0)
            moves.left.push_back(PathOf(folder));
    return moves;
}

/// From the record on the new output counts, whatever happens here. What fails once, as while a
/// program looks into a new file, is tried again.
void StagedOutput::RollForward(const Moves& moves) {
    try {
        PlaceAll(moves);
        return;
    } catch (const OutputFailure&) {
    } catch (const std::bad_alloc&) {
    }
    try {
        PlaceAll(moves);
    } catch (const OutputFailure& failure) {
        throw OutputFailure(std::string(failure.what()) + kFinishesLater);
    } catch (const std::bad_alloc&) {
        Fail(m_folder, std::string(kNotComplete) + " (out of memory)" + kFinishesLater);
    }
}

/// Whatever part of this was done before, by this process or another, is done again to the same
/// end. Takes no memory: while there is none, the output still becomes whole.
void StagedOutput::PlaceAll(const Moves& moves) {
    Check(m_disk.FlushFolder(m_own), m_own, kNotComplete);
    for (const fs::path& file : moves.removed)
        Check(m_disk.RemoveFile(file), file, "cannot be removed");
    for (const fs::path& folder : moves.folders)
        Check(m_disk.MakeFolder(folder), folder, "the folder cannot be made");
    for (const Move& move : moves.placed)
        if (Exists(move.staged))
            Check(m_disk.Rename(move.staged, move.place), move.place, "cannot be replaced");
    for (const fs::path& folder : moves.left)
        RemoveEmpty(folder);
    for (const fs::path& folder : moves.folders)
        Check(m_disk.FlushFolder(folder), folder, kNotComplete);
    Check(m_disk.FlushFolder(m_folder), m_folder, kNotComplete);
    if (Exists(m_record))
        Check(m_disk.Rename(m_record, m_lastRecord), m_own, kNotComplete);
    Check(m_disk.FlushFolder(m_own), m_own, kNotComplete);
    DropStaging();
}

/// One that still holds files of others stays, and so does a link to one.
void StagedOutput::RemoveEmpty(const fs::path& folder) {
    fs::file_status status;
    Check(m_disk.GetLinkStatus(folder, status), folder, kUnknownStatus);
    if (!fs::is_directory(status))
        return;
    const std::error_code error = m_disk.RemoveFile(folder);
    if (error != std::errc::directory_not_empty)
        Check(error, folder, "cannot be removed");
}

fs::path StagedOutput::PathOf(const std::string& name) const {
    return m_folder / PathFromUtf8(name);
}

StagedOutput::Record StagedOutput::ReadRecord(const fs::path& file) const {
    std::string bytes;
    Check(m_disk.ReadFile(file, bytes), file, "this record of camjob cannot be read");
    Record record;
    std::string_view left = bytes;
    std::string_view line = TakeLine(left);
    bool isSound = line == kRecordBegin;
    while (isSound && !left.empty() && (line = TakeLine(left)) != kRecordEnd)
        isSound = TakeName(line, kPlacedWord, record.placed) ||
                  TakeName(line, kRemovedWord, record.removed);
    if (!isSound || line != kRecordEnd)
        Fail(file, "this record of camjob is damaged; remove the folder that it lies in");
    return record;
}

}  // namespace camjob
