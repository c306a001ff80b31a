#include "camjob/CommandLine.h"
#include "camjob/console/Console.h"
#include "camjob/disk/RevocableFiles.h"

#include <atomic>
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

/// Memory to say in that there is none. Atomic: memory may end in several threads at a time.
std::atomic<char*> s_reserve = nullptr;

/// The first allocation that fails lets go of the reserve, so that the way out has some.
void FailWithReserve() {
    delete[] s_reserve.exchange(nullptr);
    throw std::bad_alloc();
}

#ifdef _WIN32
using Character = wchar_t;
#else
using Character = char;
#endif

/// The program's own, for the last words too.
int s_argumentCount = 0;
Character** s_arguments = nullptr;
/// Something of the report is out: a document cannot begin anew.
bool s_hasReported = false;
/// What a run leaves behind. A union does not destroy it.
union Leftover {
    Leftover() : ofRun() {}
    ~Leftover() {}
    std::shared_ptr<const void> ofRun;
};
Leftover s_leftover;

std::vector<std::string> TakeArguments() {
    std::vector<std::string> texts;
    for (int i = 1; i < s_argumentCount; ++i)
        texts.push_back(camjob::Utf8Argument(s_arguments[i]));
    return texts;
}

/// Without memory: not even an exception can be made.
int SayShortLastWords() {
    std::fputs("camjob: out of memory\n", stderr);
    return camjob::kExitNotWritten;
}

/// By now the reserve is there to be used.
int SayLastWords() {
    camjob::StandardStream out(camjob::StandardOutput::kReport);
    camjob::StandardStream err(camjob::StandardOutput::kMessages);
    try {
        return camjob::EndWithoutMemory(TakeArguments(), s_hasReported, out, err);
    } catch (const std::bad_alloc&) {
        return SayShortLastWords();
    }
}

/// What needs memory where no exception may pass, and finds none, ends here. The output stays old
/// or new: the next run finishes what this one began.
[[noreturn]] void EndAtOnce() {
    static std::atomic<bool> s_isEnding = false;
    if (s_isEnding.exchange(true))
        std::_Exit(SayShortLastWords());
    camjob::RevocableFiles::TakeBackWhatIsThere();
    if (s_reserve == nullptr)
        std::_Exit(SayLastWords());
    std::abort();
}

class ReportStream : public camjob::StandardStream {
  public:
    ReportStream() : StandardStream(camjob::StandardOutput::kReport) {}

  private:
    std::error_code WriteBytes(std::string_view bytes) override {
        s_hasReported = true;
        return StandardStream::WriteBytes(bytes);
    }
};

/// Before all else: what the libraries make before main takes memory too.
struct Preparation {
    Preparation() {
        constexpr std::size_t kReserve = std::size_t{1} << 20;
        std::set_terminate(EndAtOnce);
        s_reserve = new (std::nothrow) char[kReserve];
        std::set_new_handler(FailWithReserve);
    }
};
[[gnu::init_priority(101)]] const Preparation s_preparation;

int RunProgram() {
    const camjob::ConsoleMode mode;
    ReportStream out;
    camjob::StandardStream err(camjob::StandardOutput::kMessages);
    try {
        return camjob::RunCamjob(TakeArguments(), out, err, &s_leftover.ofRun);
    } catch (const std::bad_alloc&) {
        err.Flush();
        return SayLastWords();
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
    s_argumentCount = count;
    s_arguments = arguments;
    return RunProgram();
}
