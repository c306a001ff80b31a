#include "camjob/CamjobRun.h"
#include "camjob/console/Progress.h"

#include <algorithm>

namespace {

using camjob::Progress;

/// A terminal that shows what it was sent.
class Terminal : public TextStream {
  public:
    bool IsTerminal() const override { return true; }
    /// The line as somebody sees it now.
    std::string Seen() {
        std::string line;
        std::size_t at = 0;
        for (const char c : GetText()) {
            at = c == '\r' ? 0 : at + 1;
            line.resize(std::max(line.size(), at), ' ');
            if (at > 0)
                line[at - 1] = c;
        }
        return line.substr(0, line.find_last_not_of(' ') + 1);
    }
};

Progress::Time s_now;

Progress::Time Now() {
    return s_now;
}

void Wait(int milliseconds) {
    s_now += std::chrono::milliseconds(milliseconds);
}

TEST(Progress, TellsCountRateTimeLeftAndFile) {
    Terminal terminal;
    {
        Progress progress(terminal, &Now);
        progress.Begin("reading", 1000, "files");
        progress.Step("a.nc1");
        EXPECT_EQ(terminal.Seen(), "reading 0 of 1000 files: a.nc1");
        Wait(99);
        progress.Step("b.nc1");
        EXPECT_EQ(terminal.Seen(), "reading 0 of 1000 files: a.nc1");
        Wait(1);
        progress.Step("c.nc1");
        EXPECT_EQ(terminal.Seen(), "reading 2 of 1000 files, 20/s, 50 s left: c.nc1");
        Wait(9900);
        progress.Step("m\x1B[2J.nc1");
        EXPECT_EQ(terminal.Seen(), "reading 3 of 1000 files, 0.3/s, 56 min left: m?[2J.nc1");
        progress.Begin("writing", 5, "members");
        progress.Step(std::string(100, 'x'));
        EXPECT_EQ(terminal.Seen(), "writing 0 of 5 members: " + std::string(55, 'x'));
        progress.Erase();
        EXPECT_EQ(terminal.Seen(), "");
        progress.Step("Tr\xC3\xA4ger.nc1");
        Wait(1000);
        progress.Step({});
        EXPECT_EQ(terminal.Seen(), "writing 2 of 5 members, 2.0/s, 2 s left");
    }
    EXPECT_EQ(terminal.Seen(), "");
}

TEST(Progress, IsSilentElsewhere) {
    TextStream pipe;
    {
        Progress progress(pipe, &Now);
        progress.Begin("reading", 2, "files");
        progress.Step("a.nc1");
    }
    EXPECT_EQ(pipe.GetText(), "");
}

}  // namespace
