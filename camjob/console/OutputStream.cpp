#include "camjob/console/OutputStream.h"

namespace camjob {

namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

}  // namespace

void OutputStream::Write(std::string_view text) {
    if (m_failure)
        return;
    m_buffer += text;
    if (m_buffer.size() < kBufferSize)
        return;
    // Up to the end of a line: a terminal must not get half a character.
    const std::size_t lineEnd = m_buffer.rfind('\n');
    if (lineEnd != std::string::npos)
        HandOver(lineEnd + 1);
}

bool OutputStream::Flush() {
    HandOver(m_buffer.size());
    return !m_failure;
}

void OutputStream::HandOver(std::size_t count) {
    if (!m_failure && count > 0)
        m_failure = WriteBytes(std::string_view(m_buffer).substr(0, count));
    m_buffer.erase(0, count);
}

}  // namespace camjob
