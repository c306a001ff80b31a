#include "camjob/CommandLine.h"
#include "camjob/console/Console.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

/// Memory to say in that there is none.
std::unique_ptr<char[]> s_reserve;

/// The first allocation that fails lets go of the reserve, so that the way out has some.
void FailWithReserve() {
    s_reserve.reset();
    throw std::bad_alloc();
}

/// What is left to do where memory ends in a place that cannot hand the failure on.
struct LastWords {
    bool makesOutput = false;
    bool isJson = false;
    bool hasReported = false;  ///< something of the report is out

    /// Takes no memory.
    int Say() const;
};

LastWords s_lastWords;

int LastWords::Say() const {
    std::fputs("camjob: out of memory\n", stderr);
    if (isJson && !hasReported)
        std::printf(
            "{\"schema\": 1, \"status\": \"%s\", \"exitCode\": %d, \"faults\": "
            "[{\"message\": \"camjob: out of memory\"}]}\n",
            makesOutput ? "failed" : "refused",
            makesOutput ? camjob::kExitNotWritten : camjob::kExitBadInput);
    std::fflush(stdout);
    return makesOutput ? camjob::kExitNotWritten : camjob::kExitBadInput;
}

/// A destructor that needs memory, and finds none, ends here. The output stays old or new: the next
/// run finishes what this one began.
[[noreturn]] void EndAtOnce() {
    if (s_reserve == nullptr)
        std::_Exit(s_lastWords.Say());
    std::abort();
}

class ReportStream : public camjob::StandardStream {
  public:
    ReportStream() : StandardStream(camjob::StandardOutput::kReport) {}

  private:
    std::error_code WriteBytes(std::string_view bytes) override {
        s_lastWords.hasReported = true;
        return StandardStream::WriteBytes(bytes);
    }
};

void PrepareForFailures() {
    constexpr std::size_t kReserve = std::size_t{1} << 20;
    std::set_terminate(EndAtOnce);
    s_reserve = std::make_unique<char[]>(kReserve);
    std::set_new_handler(FailWithReserve);
}

template <typename Character>
std::vector<std::string> TakeArguments(int count, Character** arguments) {
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i)
        texts.push_back(camjob::Utf8Argument(arguments[i]));
    const auto isJson = [](const std::string& text) { return text == "--json"; };
    s_lastWords.makesOutput = !texts.empty() && texts[0] == "run";
    s_lastWords.isJson = std::any_of(texts.begin(), texts.end(), isJson);
    return texts;
}

template <typename Character>
int RunProgram(int count, Character** arguments) {
    PrepareForFailures();
    const camjob::ConsoleMode mode;
    ReportStream out;
    camjob::StandardStream err(camjob::StandardOutput::kMessages);
    try {
        return camjob::RunCamjob(TakeArguments(count, arguments), out, err);
    } catch (const std::bad_alloc&) {
        err.Flush();
        return s_lastWords.Say();
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
