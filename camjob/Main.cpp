#include "camjob/CommandLine.h"
#include "camjob/console/Console.h"

#include <exception>

namespace {

template <typename Character>
int RunProgram(int count, Character** arguments) {
    const camjob::ConsoleMode mode;
    camjob::StandardStream out(camjob::StandardOutput::kReport);
    camjob::StandardStream err(camjob::StandardOutput::kMessages);
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i)
        texts.push_back(camjob::Utf8Argument(arguments[i]));
    try {
        return camjob::RunCamjob(std::move(texts), out, err);
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
