#pragma once

#include "camjob/console/OutputStream.h"

#include <string>

namespace camjob {

enum class StandardOutput {
    kReport = 1,    ///< stdout
    kMessages = 2,  ///< stderr
};

/// One of the program's own streams, unchanged bytes on every system.
class StandardStream : public OutputStream {
  public:
    explicit StandardStream(StandardOutput output) : m_descriptor(static_cast<int>(output)) {}

    bool IsTerminal() const override;
    /// Without colour when the user says so (NO_COLOR) or the terminal knows none.
    Terminal GetTerminal() const override;

  protected:
    std::error_code WriteBytes(std::string_view bytes) override;

  private:
    int m_descriptor;
};

/// Makes terminal and streams take UTF-8 as it is, for as long as this object lives. On POSIX a
/// file that reaches the limit on file sizes counts from then on as one that cannot be written.
class ConsoleMode {
  public:
    ConsoleMode();
    ~ConsoleMode();
    ConsoleMode(const ConsoleMode&) = delete;
    ConsoleMode& operator=(const ConsoleMode&) = delete;

  private:
    [[maybe_unused]] unsigned m_previousCodePage = 0;  ///< 0: nothing to restore
};

/// An argument of the program as UTF-8.
std::string Utf8Argument(const wchar_t* argument);
/// Bytes of a file name stay what they are, UTF-8 or not.
std::string Utf8Argument(const char* argument);

}  // namespace camjob
