#include "camdata/platform/base/ZetAssert.h"

#include <utility>

namespace {

/// Of all threads: set while there is only one, called in the one whose assertion fails.
ZetAssertHandler g_handler = nullptr;

std::string Describe(const char* text, const char* file, int line) {
    return std::string("assertion failed: ") + text + " (" + file + ":" + std::to_string(line) +
           ")";
}

}  // namespace

ZetAssertError::ZetAssertError(const char* text, const char* file, int line)
    : std::logic_error(Describe(text, file, line)), m_text(text), m_file(file), m_line(line) {}

ZetAssertError::~ZetAssertError() = default;

ZetAssertHandler SetZetAssertHandler(ZetAssertHandler handler) {
    return std::exchange(g_handler, handler);
}

void camdata::detail::FailAssertion(const char* text, const char* file, int line) {
    if (g_handler != nullptr)
        g_handler(text, file, line);
    throw ZetAssertError(text, file, line);
}
