#include "camjob/console/Colour.h"
#include "camjob/console/Console.h"

#include "camdata/platform/text/ZetString.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

// Lets the C runtime expand * and ? in arguments, which shells of this system leave to programs.
extern "C" {
int _dowildcard = -1;
}

namespace camjob {

std::error_code StandardStream::WriteBytes(std::string_view bytes) {
    while (!bytes.empty()) {
        const int written =
            ::_write(m_descriptor, bytes.data(), static_cast<unsigned>(bytes.size()));
        if (written < 0)
            return {errno, std::generic_category()};
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

bool StandardStream::IsTerminal() const {
    // A file or pipe has no console mode; the runtime's own test takes every device for a terminal.
    DWORD mode = 0;
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(m_descriptor));
    return ::GetConsoleMode(handle, &mode) != 0;
}

Terminal StandardStream::GetTerminal() const {
    constexpr DWORD kTakesSequences = 0x0004;
    DWORD mode = 0;
    CONSOLE_SCREEN_BUFFER_INFO info{};
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(m_descriptor));
    if (::GetConsoleMode(handle, &mode) == 0 || ::GetConsoleScreenBufferInfo(handle, &info) == 0)
        return {};
    return {info.srWindow.Right - info.srWindow.Left + 1,
            WantsColour() && ::SetConsoleMode(handle, mode | kTakesSequences) != 0};
}

ConsoleMode::ConsoleMode() : m_previousCodePage(::GetConsoleOutputCP()) {
    ::SetConsoleOutputCP(CP_UTF8);
    ::_setmode(static_cast<int>(StandardOutput::kReport), _O_BINARY);
    ::_setmode(static_cast<int>(StandardOutput::kMessages), _O_BINARY);
}

ConsoleMode::~ConsoleMode() {
    if (m_previousCodePage != 0)
        ::SetConsoleOutputCP(m_previousCodePage);
}

std::string Utf8Argument(const wchar_t* argument) {
    return ZetString(argument).toUtf8();
}

}  // namespace camjob
