#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// What went wrong with a file first.
struct ZetFileFault {
    enum class Operation {
        kOpen,
        kRead,
        kWrite,
        kSeek,
        kClose,
    };

    Operation operation = Operation::kOpen;
    int systemError = 0;  ///< errno of the failed call; 0: the file was not open
};

/// A text file: UTF-8 without a mark, read by character, written through a buffer, with no
/// translation of line ends in either direction on any platform.
///
/// Failures raise nothing: the operation returns false, and GetFault() tells the first one. Not
/// copyable; the destructor closes the file.
class CAMDATA_API ZetFileAccess {
  public:
    /// The only encoding: UTF-8.
    static constexpr int kEncodingUtf8 = 0;
    /// What ReadChar returns at the end of the file.
    static constexpr wchar_t kEndOfFile = 0xFFFF;

    ZetFileAccess();
    ~ZetFileAccess();
    ZetFileAccess(const ZetFileAccess&) = delete;
    ZetFileAccess& operator=(const ZetFileAccess&) = delete;

    /// Opens a file after closing the one that was open. `mode` is "r" (read), "w" (replace) or
    /// "a" (write at the end). Clears the fault; another mode or encoding and a null character in
    /// the name are faults.
    bool Open(const ZetString& name, const ZetString& mode, int encoding = kEncodingUtf8);
    bool IsOpen() const;
    /// Writes what is buffered and closes. True when the file was open and all was written.
    bool Close();

    /// Writes a text at the write position. False, and a fault, when no file is open for writing.
    bool Write(const ZetString& text);
    /// The same for a text that is UTF-8 already. The bytes are written as they are.
    bool WriteUtf8(std::string_view bytes);
    /// Writes a text made from a checked format (ZetString::format).
    template <typename... Args>
    bool WriteFormat(ZetFormatString<std::type_identity_t<Args>...> format, const Args&... args) {
        return Write(ZetString::format(format, args...));
    }
    /// The next character, kEndOfFile at the end and after a fault; a U+FFFF in the file, which is
    /// no character, looks the same. Bytes that are not UTF-8 read as U+FFFD; on Windows a
    /// character beyond U+FFFF comes as its two halves.
    wchar_t ReadChar();

    /// The position of the next write or read, in bytes from the start; -1 when no file is open.
    std::int64_t GetPosition() const;
    bool SetPosition(std::int64_t position);

    const ZetString& GetName() const { return m_name; }
    /// The first fault since the last Open, also after Close; nothing when all went well.
    const std::optional<ZetFileFault>& GetFault() const { return m_fault; }

  private:
    struct Buffer;

    bool Fail(ZetFileFault::Operation operation, int systemError);
    bool Flush();
    bool HasNextCharacter();
    bool Fill();

    ZetString m_name;
    std::unique_ptr<Buffer> m_buffer;  ///< null: no file is open
    std::optional<ZetFileFault> m_fault;
};
