// A library that is loaded before all others and stands between a program and its files: one call
// of those that touch the folder CAMJOB_FAULT_ROOT does not do what it should. CAMJOB_FAULT_AT=N
// says which, from 1; CAMJOB_FAULT says how: the number of an error, "short" (half of what is to be
// read or written), "kill" or "killed-after" (the process ends before or after the call). With
// CAMJOB_FAULT_LOG the name of each call goes to that file, a line each.

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

/// The next one of this name in the order of the libraries: what the program would have called.
template <class Function>
Function* RealOf(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

struct Plan {
    const char* root = std::getenv("CAMJOB_FAULT_ROOT");
    const char* at = std::getenv("CAMJOB_FAULT_AT");
    const char* how = std::getenv("CAMJOB_FAULT");
    int log = -1;

    Plan() {
        const char* const file = std::getenv("CAMJOB_FAULT_LOG");
        if (file != nullptr)
            log = static_cast<int>(
                syscall(257 /* openat */, AT_FDCWD, file, O_WRONLY | O_CREAT | O_TRUNC, 0666));
    }
};

const Plan& ThePlan() {
    static const Plan plan;
    return plan;
}

constexpr int kMaxFiles = 1024;
bool s_isWatched[kMaxFiles];
long s_count = 0;

bool IsWatched(int file) {
    return file >= 0 && file < kMaxFiles && s_isWatched[file];
}

bool IsWatched(const char* path) {
    const char* const root = ThePlan().root;
    return root != nullptr && path != nullptr && std::strncmp(path, root, std::strlen(root)) == 0;
}

bool IsWatched(int folder, const char* path) {
    return path[0] == '/' ? IsWatched(path) : IsWatched(folder);
}

void Watch(int file, bool isWatched) {
    if (file >= 0 && file < kMaxFiles)
        s_isWatched[file] = isWatched;
}

enum class Fault { eNone, eError, eShort, eKill, eKilledAfter };

/// What is to happen to this call; errno is set for an error.
Fault NextFault(const char* name) {
    const Plan& plan = ThePlan();
    ++s_count;
    if (plan.log >= 0)
        dprintf(plan.log, "%s\n", name);
    if (plan.at == nullptr || std::atol(plan.at) != s_count)
        return Fault::eNone;
    if (std::strcmp(plan.how, "kill") == 0)
        return Fault::eKill;
    if (std::strcmp(plan.how, "killed-after") == 0)
        return Fault::eKilledAfter;
    if (std::strcmp(plan.how, "short") == 0)
        return Fault::eShort;
    errno = std::atoi(plan.how);
    return Fault::eError;
}

/// Makes the call, or what takes its place; `fail` is what it returns with an error.
template <class Result, class Call>
Result Through(const char* name, Result fail, const Call& call) {
    const Fault fault = NextFault(name);
    if (fault == Fault::eKill)
        std::raise(SIGKILL);
    if (fault == Fault::eError)
        return fail;
    const Result result = call(fault == Fault::eShort);
    if (fault == Fault::eKilledAfter)
        std::raise(SIGKILL);
    return result;
}

std::size_t Half(std::size_t count, bool isShort) {
    return isShort && count > 1 ? count / 2 : count;
}

/// Closed all the same, as the system does it.
template <class Close>
int CloseThrough(const char* name, const Close& close) {
    const Fault fault = NextFault(name);
    if (fault == Fault::eKill)
        std::raise(SIGKILL);
    const int error = errno;
    const int result = close();
    if (fault == Fault::eKilledAfter)
        std::raise(SIGKILL);
    if (fault != Fault::eError)
        return result;
    errno = error;
    return -1;
}

template <class Open>
int OpenThrough(bool isWatched, const char* name, const Open& open) {
    const int file = isWatched ? Through(name, -1, [&](bool) { return open(); }) : open();
    Watch(file, isWatched && file >= 0);
    return file;
}

mode_t ModeOf(int flags, va_list arguments) {
    return (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(arguments, int)) : 0;
}

}  // namespace

extern "C" {

// Calls on a file that is named or open: result, its value for a failure, the call, its arguments
// as declared, which of them is the file, its arguments as passed.
#define WATCHED(result, failure, name, declared, file, passed)                          \
    result name declared {                                                              \
        static auto* const real = RealOf<result declared>(#name);                       \
        return IsWatched(file)                                                          \
                   ? Through<result>(#name, failure, [&](bool) { return real passed; }) \
                   : real passed;                                                       \
    }

WATCHED(int, -1, rename, (const char* from, const char* to), from, (from, to))
WATCHED(int, -1, link, (const char* from, const char* to), to, (from, to))
WATCHED(int, -1, symlink, (const char* from, const char* to), to, (from, to))
WATCHED(int, -1, remove, (const char* path), path, (path))
WATCHED(int, -1, unlink, (const char* path), path, (path))
WATCHED(int, -1, rmdir, (const char* path), path, (path))
WATCHED(int, -1, mkdir, (const char* path, mode_t mode), path, (path, mode))
WATCHED(int, -1, stat, (const char* path, struct stat* status), path, (path, status))
WATCHED(int, -1, lstat, (const char* path, struct stat* status), path, (path, status))
WATCHED(int, -1, stat64, (const char* path, struct stat64* status), path, (path, status))
WATCHED(int, -1, lstat64, (const char* path, struct stat64* status), path, (path, status))
WATCHED(int, -1, truncate, (const char* path, off_t size), path, (path, size))
WATCHED(
    ssize_t, -1, readlink, (const char* path, char* to, std::size_t size), path, (path, to, size))

WATCHED(int, -1, fsync, (int file), file, (file))
WATCHED(int, -1, fdatasync, (int file), file, (file))
WATCHED(int, -1, flock, (int file, int operation), file, (file, operation))
WATCHED(int, -1, fstat, (int file, struct stat* status), file, (file, status))
WATCHED(int, -1, fstat64, (int file, struct stat64* status), file, (file, status))
WATCHED(struct dirent*, nullptr, readdir, (DIR * folder), dirfd(folder), (folder))

ssize_t read(int file, void* to, std::size_t size) {
    static auto* const real = RealOf<ssize_t(int, void*, std::size_t)>("read");
    return IsWatched(file)
               ? Through<ssize_t>(
                     "read", -1, [&](bool isShort) { return real(file, to, Half(size, isShort)); })
               : real(file, to, size);
}

ssize_t write(int file, const void* from, std::size_t size) {
    static auto* const real = RealOf<ssize_t(int, const void*, std::size_t)>("write");
    return IsWatched(file) ? Through<ssize_t>("write",
                                              -1,
                                              [&](bool isShort) {
                                                  return real(file, from, Half(size, isShort));
                                              })
                           : real(file, from, size);
}

ssize_t writev(int file, const struct iovec* parts, int count) {
    static auto* const real = RealOf<ssize_t(int, const struct iovec*, int)>("writev");
    const auto call = [&](bool isShort) {
        return isShort ? ::write(file, parts[0].iov_base, Half(parts[0].iov_len, true))
                       : real(file, parts, count);
    };
    return IsWatched(file) ? Through<ssize_t>("writev", -1, call) : real(file, parts, count);
}

int open(const char* path, int flags, ...) {
    static auto* const real = RealOf<int(const char*, int, ...)>("open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenThrough(IsWatched(path), "open", [&] { return real(path, flags, mode); });
}

int openat(int folder, const char* path, int flags, ...) {
    static auto* const real = RealOf<int(int, const char*, int, ...)>("openat");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenThrough(
        IsWatched(folder, path), "openat", [&] { return real(folder, path, flags, mode); });
}

int unlinkat(int folder, const char* path, int flags) {
    static auto* const real = RealOf<int(int, const char*, int)>("unlinkat");
    const auto call = [&](bool) { return real(folder, path, flags); };
    return IsWatched(folder, path) ? Through<int>("unlinkat", -1, call) : call(false);
}

int close(int file) {
    static auto* const real = RealOf<int(int)>("close");
    if (!IsWatched(file))
        return real(file);
    Watch(file, false);
    return CloseThrough("close", [&] { return real(file); });
}

std::FILE* fopen64(const char* path, const char* mode) {
    static auto* const real = RealOf<std::FILE*(const char*, const char*)>("fopen64");
    const bool isWatched = IsWatched(path);
    std::FILE* const file =
        isWatched ? Through<std::FILE*>("fopen", nullptr, [&](bool) { return real(path, mode); })
                  : real(path, mode);
    if (file != nullptr)
        Watch(fileno(file), isWatched);
    return file;
}

int fclose(std::FILE* file) {
    static auto* const real = RealOf<int(std::FILE*)>("fclose");
    if (!IsWatched(fileno(file)))
        return real(file);
    Watch(fileno(file), false);
    return CloseThrough("fclose", [&] { return real(file); });
}

DIR* opendir(const char* path) {
    static auto* const real = RealOf<DIR*(const char*)>("opendir");
    const bool isWatched = IsWatched(path);
    DIR* const folder = isWatched
                            ? Through<DIR*>("opendir", nullptr, [&](bool) { return real(path); })
                            : real(path);
    if (folder != nullptr)
        Watch(dirfd(folder), isWatched);
    return folder;
}

int closedir(DIR* folder) {
    static auto* const real = RealOf<int(DIR*)>("closedir");
    Watch(dirfd(folder), false);
    return real(folder);
}
}
