#pragma once

#include "camdata/platform/base/Export.h"

#include <stdexcept>
#include <string>

/// The error that a failed assertion ends in, unless a handler raises another one first.
class CAMDATA_API ZetAssertError : public std::logic_error {
  public:
    ZetAssertError(const char* text, const char* file, int line);
    ~ZetAssertError() override;

    /// The text of the assertion, for example "isValid( index )".
    const std::string& GetText() const { return m_text; }
    /// Source file of the assertion, relative to the source tree.
    const std::string& GetFile() const { return m_file; }
    int GetLine() const { return m_line; }

  private:
    std::string m_text;
    std::string m_file;
    int m_line;
};

/// Called with the text, the file and the line of a failed assertion, before anything is touched.
/// It may raise an error of its own; if it returns, ZetAssertError follows.
using ZetAssertHandler = void (*)(const char* text, const char* file, int line);

/// Replaces the assertion handler of the process and returns the one it replaces.
/// Null puts the default back, which raises ZetAssertError.
CAMDATA_API ZetAssertHandler SetZetAssertHandler(ZetAssertHandler handler);

namespace camdata::detail {

/// Ends a failed assertion: calls the handler, then raises ZetAssertError. Never returns.
[[noreturn]] CAMDATA_API void FailAssertion(const char* text, const char* file, int line);

}  // namespace camdata::detail

/// Fails with `text` unless `condition` holds. The text is part of the interface: hosts log it.
#define ZET_ASSERT(condition, text)                                       \
    do {                                                                  \
        if (!(condition)) [[unlikely]]                                    \
            ::camdata::detail::FailAssertion((text), __FILE__, __LINE__); \
    } while (false)
