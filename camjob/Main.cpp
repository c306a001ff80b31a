#include "camjob/CommandLine.h"
#include "camjob/console/Console.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <new>

namespace {

/// Memory to say in that there is none.
std::unique_ptr<char[]> s_reserve;

/// The first allocation that fails lets go of the reserve, so that the way out has some.
void FailWithReserve() {
    s_reserve.reset();
    throw std::bad_alloc();
}

template <typename Character>
int RunProgram(int count, Character** arguments) {
    constexpr std::size_t kReserve = std::size_t{1} << 20;
    s_reserve = std::make_unique<char[]>(kReserve);
    std::set_new_handler(FailWithReserve);
    const camjob::ConsoleMode mode;
    camjob::StandardStream out(camjob::StandardOutput::kReport);
    camjob::StandardStream err(camjob::StandardOutput::kMessages);
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i)
        texts.push_back(camjob::Utf8Argument(arguments[i]));
    try {
        return camjob::RunCamjob(std::move(texts), out, err);
    } catch (const std::bad_alloc&) {
        err.Write("camjob: out of memory\n");
        err.Flush();
        return camjob::kExitBadInput;
    } catch (const std::exception& failure) {
        err.Write(std::string("camjob: ") + failure.what() + "\n");
        err.Flush();
        return camjob::kExitBadInput;
    }
}

}  // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** arguments) {
#else
int main(int count, char** arguments) {
#endif
    return RunProgram(count, arguments);
}
