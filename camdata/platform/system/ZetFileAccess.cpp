#include "camdata/platform/system/ZetFileAccess.h"

#include "camdata/platform/system/FileDescriptor.h"
#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

using camdata::detail::OsOpenMode;
using Operation = ZetFileFault::Operation;

namespace {

constexpr std::size_t kBufferSize = std::size_t{64} * 1024;
constexpr std::size_t kLongestCharacter = 4;  // bytes of UTF-8

struct ModeRow {
    std::wstring_view text;
    OsOpenMode mode;
};

constexpr ModeRow kModes[] = {
    {L"r", OsOpenMode::kRead   },
    {L"w", OsOpenMode::kReplace},
    {L"a", OsOpenMode::kAppend },
};

std::optional<OsOpenMode> FindMode(const ZetString& text) {
    for (const ModeRow& row : kModes) {
        if (row.text == text.view())
            return row.mode;
    }
    return std::nullopt;
}

}  // namespace

/// The open file and its buffer: bytes still to be written, or bytes read ahead.
struct ZetFileAccess::Buffer {
    int file = -1;
    bool isForReading = false;
    std::int64_t position = 0;  ///< of the file where `bytes` begins
    std::vector<char> bytes;
    std::size_t next = 0;            ///< first byte not read yet
    std::wstring pendingCharacters;  ///< second half of a character beyond U+FFFF
};

// A program that takes their address looks for them in the library on Windows.
constexpr int ZetFileAccess::kEncodingUtf8;
constexpr wchar_t ZetFileAccess::kEndOfFile;

ZetFileAccess::ZetFileAccess() = default;

ZetFileAccess::~ZetFileAccess() {
    Close();
}

bool ZetFileAccess::Open(const ZetString& name, const ZetString& mode, int encoding) {
    Close();
    m_fault.reset();
    m_name = name;
    const std::optional<OsOpenMode> openMode = FindMode(mode);
    // The system would take the part of a name before a null character for the name.
    const bool isName = name.view().find(L'\0') == std::wstring_view::npos;
    if (!openMode || encoding != kEncodingUtf8 || !isName)
        return Fail(Operation::kOpen, EINVAL);
    const int file = camdata::detail::OsOpen(name, *openMode);
    if (file < 0)
        return Fail(Operation::kOpen, errno);
    m_buffer = std::make_unique<Buffer>();
    m_buffer->file = file;
    m_buffer->isForReading = *openMode == OsOpenMode::kRead;
    if (*openMode == OsOpenMode::kAppend)
        m_buffer->position = std::max<std::int64_t>(camdata::detail::OsSeekEnd(file), 0);
    return true;
}

bool ZetFileAccess::IsOpen() const {
    return m_buffer != nullptr;
}

bool ZetFileAccess::Close() {
    if (!IsOpen())
        return false;
    Flush();
    if (!camdata::detail::OsClose(m_buffer->file))
        Fail(Operation::kClose, errno);
    m_buffer.reset();
    return !m_fault;
}

bool ZetFileAccess::Write(const ZetString& text) {
    return WriteUtf8(text.toUtf8());
}

bool ZetFileAccess::WriteUtf8(std::string_view bytes) {
    if (!IsOpen() || m_buffer->isForReading)
        return Fail(Operation::kWrite, 0);
    if (m_fault)
        return false;
    m_buffer->bytes.insert(m_buffer->bytes.end(), bytes.begin(), bytes.end());
    return m_buffer->bytes.size() < kBufferSize || Flush();
}

wchar_t ZetFileAccess::ReadChar() {
    if (!IsOpen() || !m_buffer->isForReading)
        Fail(Operation::kRead, 0);
    if (m_fault || !HasNextCharacter())
        return kEndOfFile;
    std::wstring& pending = m_buffer->pendingCharacters;
    const wchar_t next = pending.front();
    pending.erase(0, 1);
    return next;
}

std::int64_t ZetFileAccess::GetPosition() const {
    if (!IsOpen())
        return -1;
    const std::size_t ahead = m_buffer->isForReading ? m_buffer->next : m_buffer->bytes.size();
    return m_buffer->position + static_cast<std::int64_t>(ahead);
}

bool ZetFileAccess::SetPosition(std::int64_t position) {
    if (!IsOpen())
        return Fail(Operation::kSeek, 0);
    if (!Flush())
        return false;
    if (camdata::detail::OsSeek(m_buffer->file, position) < 0)
        return Fail(Operation::kSeek, errno);
    m_buffer->bytes.clear();
    m_buffer->next = 0;
    m_buffer->pendingCharacters.clear();
    m_buffer->position = position;
    return true;
}

/// Keeps the first fault: later ones follow from it.
bool ZetFileAccess::Fail(Operation operation, int systemError) {
    if (!m_fault)
        m_fault = ZetFileFault{operation, systemError};
    return false;
}

/// Writes the buffered bytes. After a fault they are dropped: the file is broken anyway.
bool ZetFileAccess::Flush() {
    if (m_buffer->isForReading)
        return true;
    if (!m_fault && !camdata::detail::OsWriteAll(m_buffer->file,
                                                 {m_buffer->bytes.data(), m_buffer->bytes.size()}))
        Fail(Operation::kWrite, errno);
    m_buffer->position += static_cast<std::int64_t>(m_buffer->bytes.size());
    m_buffer->bytes.clear();
    return !m_fault;
}

/// Decodes the next character unless half of one is pending. False at the end and after a fault.
bool ZetFileAccess::HasNextCharacter() {
    Buffer& buffer = *m_buffer;
    if (!buffer.pendingCharacters.empty())
        return true;
    if (buffer.bytes.size() - buffer.next < kLongestCharacter && !Fill())
        return false;
    if (buffer.next == buffer.bytes.size())
        return false;
    const auto character = camdata::detail::DecodeUtf8(
        {buffer.bytes.data() + buffer.next, buffer.bytes.size() - buffer.next});
    buffer.next += character.bytes;
    camdata::detail::AppendWide(buffer.pendingCharacters, character.codePoint);
    return true;
}

/// Reads ahead behind the bytes that are still unread.
bool ZetFileAccess::Fill() {
    Buffer& buffer = *m_buffer;
    buffer.position += static_cast<std::int64_t>(buffer.next);
    buffer.bytes.erase(buffer.bytes.begin(),
                       buffer.bytes.begin() + static_cast<std::ptrdiff_t>(buffer.next));
    buffer.next = 0;
    std::size_t unread = buffer.bytes.size();
    std::ptrdiff_t count = 1;
    buffer.bytes.resize(unread + kBufferSize);
    while (count > 0 && unread < kLongestCharacter) {
        count = camdata::detail::OsRead(
            buffer.file, buffer.bytes.data() + unread, buffer.bytes.size() - unread);
        unread += static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 0));
    }
    buffer.bytes.resize(unread);
    return count >= 0 || Fail(Operation::kRead, errno);
}
