#include "camjob/console/Colour.h"
#include "camjob/console/Console.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace camjob {

std::error_code StandardStream::WriteBytes(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return {errno, std::generic_category()};
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return {};
}

bool StandardStream::IsTerminal() const {
    return ::isatty(m_descriptor) == 1;
}

Terminal StandardStream::GetTerminal() const {
    winsize size{};
    if (!IsTerminal() || ::ioctl(m_descriptor, TIOCGWINSZ, &size) != 0)
        return {};
    const char* const kind = std::getenv("TERM");
    return {size.ws_col, WantsColour() && kind != nullptr && kind != std::string_view("dumb")};
}

ConsoleMode::ConsoleMode() {
    std::signal(SIGXFSZ, SIG_IGN);
}
ConsoleMode::~ConsoleMode() = default;

std::string Utf8Argument(const char* argument) {
    return argument;
}

}  // namespace camjob
