#include "camjob/disk/FileStream.h"

namespace camjob {

bool FileStream::Close() {
    const bool isWritten = Flush();
    m_file.close();
    return isWritten && !m_file.fail();
}

std::error_code FileStream::WriteBytes(std::string_view bytes) {
    m_file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return m_file.fail() ? std::make_error_code(std::errc::io_error) : std::error_code();
}

}  // namespace camjob
