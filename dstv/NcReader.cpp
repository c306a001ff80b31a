#include "dstv/NcReader.h"

#include "dstv/NcParser.h"
#include "dstv/NcTokens.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <string>
#include <system_error>
#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace dstv {
namespace {

using NativeName = std::filesystem::path::string_type;

#if defined(_WIN32)
int OpenToRead(const NativeName& name) {
    return _wopen(name.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}

std::ptrdiff_t ReadSome(int file, char* bytes, std::size_t count) {
    return _read(file, bytes, static_cast<unsigned>(count));
}

void Close(int file) {
    _close(file);
}
#else
/// A pipe that nobody writes to is opened, and has no byte.
int OpenToRead(const NativeName& name) {
    return open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

std::ptrdiff_t ReadSome(int file, char* bytes, std::size_t count) {
    ssize_t read = -1;
    do
        read = ::read(file, bytes, count);
    while (read < 0 && errno == EINTR);
    return read;
}

void Close(int file) {
    close(file);
}
#endif

/// Whether the line that ends all NC files is their last: nothing is cut off behind it. Reading may
/// stop short of the end without a fault to tell.
bool IsWhole(std::string_view bytes) {
    while (bytes.ends_with('\n') || bytes.ends_with('\r'))
        bytes.remove_suffix(1);
    return bytes.ends_with("\nEN") || bytes.ends_with("\rEN");
}

/// A file that is read. Most are smaller than the buffer of a stream, which would only cost.
class File {
  public:
    explicit File(const NativeName& name) : m_file(OpenToRead(name)) {}
    ~File() {
        if (IsOpen())
            Close(m_file);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool IsOpen() const { return m_file >= 0; }
    /// How many bytes; 0 at the end, below 0 when it fails.
    std::ptrdiff_t Read(char* bytes, std::size_t count) const {
        return ReadSome(m_file, bytes, count);
    }

  private:
    int m_file;
};

ZetString TextOf(const NativeName& name) {
#if defined(_WIN32)
    return ZetString(name);
#else
    return ZetString::fromUtf8(name);
#endif
}

NcError FileError(const NativeName& name, const ZetString& expected) {
    return {TextOf(name), 0, 0, L"file", TextOf(name), expected};
}

/// Some systems open folders, others do not; none reads them.
NcError UnreadError(const NativeName& name, const ZetString& expected) {
    std::error_code ignored;
    const std::filesystem::file_type type = std::filesystem::status(name, ignored).type();
    if (type == std::filesystem::file_type::directory)
        return FileError(name, L"a file, not a folder");
    return FileError(
        name,
        type == std::filesystem::file_type::fifo ? ZetString(L"a file, not a pipe") : expected);
}

/// Why a call of the system failed.
ZetString ErrorText(int systemError) {
    return ZetString::fromUtf8(std::generic_category().message(systemError));
}

ZetString StemOf(const ZetString& file) {
    std::wstring_view name = file.view();
    name.remove_prefix(name.find_last_of(L"/\\") + 1);
    const std::size_t dot = name.rfind(L'.');
    return ZetString(std::wstring(name.substr(0, dot == 0 ? name.size() : dot)));
}

/// The folders of a file behind `folder`, each with a slash; ways up count for nothing.
ZetString FoldersOf(const ZetString& file, const ZetString& folder) {
    std::wstring path(file.view());
    std::replace(path.begin(), path.end(), L'\\', L'/');
    path.erase(path.rfind(L'/') + 1);
    if (path.starts_with(folder.view()))
        path.erase(0, folder.view().size());
    while (path.starts_with(L"../"))
        path.erase(0, 3);
    return ZetString(std::move(path));
}

/// A file's name is the only mark that no line of the file was checked for.
ZetString MarkFromName(const ZetString& file, const ZetString& folders) {
    const ZetString mark = folders + StemOf(file);
    if (std::any_of(mark.view().begin(), mark.view().end(), camdata::detail::IsControl))
        throw NcFailure(NcError{
            file, 0, 0, L"file", file, L"a name without control characters, for it is the mark"});
    return mark;
}

ZetString MarkOf(const NcPart& part, const NcReading& reading) {
    switch (reading.mark) {
        case NcMarkSource::kDrawing:
            return part.header.drawing;
        case NcMarkSource::kPhase:
            return part.header.phase;
        case NcMarkSource::kFileName:
            return MarkFromName(part.file, L"");
        case NcMarkSource::kPath:
            return MarkFromName(part.file, FoldersOf(part.file, reading.folder));
        default:
            return part.header.mark;
    }
}

}  // namespace

ZetString PathText(const std::filesystem::path& path) {
    return TextOf(path.native());
}

NcResult ReadNcFile(const std::filesystem::path& path, const NcReading& reading) {
    return ReadNcFileOfName(path.native(), reading);
}

NcResult ReadNcFileOfName(const NativeName& name, const NcReading& reading) {
    const File file(name);
    if (!file.IsOpen())
        return UnreadError(name, L"a file that can be opened (" + ErrorText(errno) + L")");
    std::array<char, 1u << 14> piece;
    std::ptrdiff_t count = file.Read(piece.data(), piece.size());
    // Of a short file one reading is all there is.
    const std::string_view first(piece.data(),
                                 static_cast<std::size_t>(std::max(count, std::ptrdiff_t{0})));
    if (first.size() < piece.size() && IsWhole(first))
        return ParseNc(first, TextOf(name), reading);
    std::string bytes;
    for (; count > 0 && bytes.size() <= kMaxFileBytes;
         count = file.Read(piece.data(), piece.size()))
        bytes.append(piece.data(), static_cast<std::size_t>(count));
    if (count < 0 || bytes.empty())
        return UnreadError(name, L"a file that can be read, and is not empty");
    if (bytes.size() > kMaxFileBytes)
        return FileError(name, L"a file of at most 64 MiB");
    return ParseNc(bytes, TextOf(name), reading);
}

NcResult ParseNc(std::string_view bytes, const ZetString& name, const NcReading& reading) {
    try {
        std::string decoded;
        NcPart part = NcParser().Parse(InUtf8(bytes, reading.encoding, decoded));
        part.file = name;
        part.header.mark = MarkOf(part, reading);
        return part;
    } catch (NcFailure& failure) {
        failure.error.file = name;
        for (NcError& error : failure.error.further)
            error.file = name;
        return std::move(failure.error);
    }
}

}  // namespace dstv
