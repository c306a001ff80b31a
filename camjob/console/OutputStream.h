#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace camjob {

/// What somebody who is looking sees text on.
struct Terminal {
    long width = 0;  ///< columns; 0: no terminal, lines may be as long as they are
    bool hasColour = false;
};

/// UTF-8 text on its way out: buffered, handed over in whole lines, up to the first failure.
class OutputStream {
  public:
    OutputStream() = default;
    virtual ~OutputStream() = default;
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    /// Adds text. After a failure nothing is written any more.
    void Write(std::string_view text);
    /// Hands over all that is buffered. False when this or anything before it failed.
    bool Flush();
    /// Somebody is looking: lines may be drawn over.
    virtual bool IsTerminal() const { return false; }
    virtual Terminal GetTerminal() const { return {}; }
    /// The first failure; no error while there is none.
    const std::error_code& GetFailure() const { return m_failure; }

  private:
    virtual std::error_code WriteBytes(std::string_view bytes) = 0;
    void HandOver(std::size_t count);

    std::string m_buffer;
    std::error_code m_failure;
};

}  // namespace camjob
