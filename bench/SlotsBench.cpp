#include "ChildProcess.h"
#include "dstv/NcHost.h"
#include "dstv/NcReader.h"
#include "job/BuiltInJob.h"
#include "plugin/rules/JobMember.h"
#include "support/TestMember.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <variant>

// Slots that lie in each other, and holes in them: the library lists a hole once for each slot that
// holds it. What the plug-in needs is told beside that.
//
// camdata_slots_bench [COUNT] prints a table; each row is a process of its own, the best of five.

namespace {

std::string PartWithSlots(int count) {
    std::string text =
        "ST\n  O\n  D\n  1\n  S1\n  S350GD\n  1\n  Z1000x2.0\n  SO\n  30000.00\n  1000.00\n"
        "  65.00\n  2.00\n  2.00\n  4.00\n  5.3\n  0.7\n  0.0\n  0.0\n  0.0\n  0.0\nBO\n";
    for (int i = 0; i < count; ++i)
        text += "  v " + std::to_string(100 + 41 * i) + " 500 20 0.00l 90000 0 0\n";
    for (int i = 0; i < count; ++i)
        text += "  v " + std::to_string(120 + 41 * i) + " 500 10\n";
    return text + "EN\n";
}

void Measure(const char* what, const std::function<int()>& body) {
    Measured best = RunChild(body);
    for (int i = 1; i < 5; ++i) {
        const Measured next = RunChild(body);
        best = {std::min(best.seconds, next.seconds),
                std::min(best.processorSeconds, next.processorSeconds),
                std::min(best.peakKib, next.peakKib)};
    }
    std::printf("%-28s %8.1f ms %8.1f MiB\n", what, best.seconds * 1e3, best.peakKib / 1024.0);
}

}  // namespace

int main(int argc, char** argv) {
    const int count = argc > 1 ? std::atoi(argv[1]) : 500;
    const std::string text = PartWithSlots(count);
    const job::Job job = job::BuiltInJob();
    const auto judge = [&](const std::function<void(dstv::NcFileEntity&, ZetNCCreator&)>& work) {
        dstv::NcFileEntity entity(
            std::get<dstv::NcPart>(dstv::ParseNc(text, L"slots.nc1", dstv::NcReading())));
        ZetNCCreator creator;
        creator.setNCEntity(&entity);
        creator.create();
        work(entity, creator);
        return 0;
    };
    std::printf("%d slots in each other and %d holes\n", count, count);
    Measure("read", [&] { return judge([](auto&, auto&) {}); });
    Measure("and the library's own list", [&] {
        return judge([&](auto&, ZetNCCreator& creator) {
            TestMember member;
            member.SetMemObjects(job.memberTypes.front().type, job.memberTypes.front().limits);
            member.SetNCObjects(&creator);
            member.GetAndSortHolesNotches();
        });
    });
    Measure("and judged by the plug-in", [&] {
        return judge([&](auto&, ZetNCCreator& creator) {
            const plugin::JudgingRules rules(job);
            plugin::JobMember member(rules, job.memberTypes.front(), creator);
            member.ValidateMember();
            member.SettleReport();
            member.MakeOutput();
        });
    });
}
