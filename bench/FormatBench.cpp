#include "job/FormatFile.h"
#include "plugin/formats/FormatWriter.h"
#include "plugin/output/MachineRecordText.h"

#include <string>

#include <benchmark/benchmark.h>

namespace {

using plugin::MachineMember;
using plugin::MachineOperation;

/// A purlin with 60 holes and slots.
MachineMember Purlin() {
    MachineMember member;
    member.mark = L"Z-101";
    member.quantity = 4;
    member.profile = L"Z200x2.0";
    member.length = 5990.5;
    member.group = L"purlins";
    for (int i = 0; i < 60; ++i) {
        MachineOperation operation;
        operation.kind =
            i % 5 == 4 ? plugin::MachineOperationKind::kSlot : plugin::MachineOperationKind::kHole;
        operation.face = eHoleFaceWeb;
        operation.x = 40.125 + 97.3 * i;
        operation.y = i % 2 == 0 ? 60.0 : 140.0;
        operation.diameter = operation.width = 18.0;
        operation.length = 40.0;
        operation.code = L"DUO W18";
        member.operations.push_back(operation);
    }
    return member;
}

/// What the plug-in does for a file of machine records.
void WriterOfRecords(benchmark::State& state) {
    const MachineMember member = Purlin();
    for (auto _ : state)
        benchmark::DoNotOptimize(plugin::FormatMember(member));
}
BENCHMARK(WriterOfRecords);

void ThroughAFormat(benchmark::State& state, const char* name) {
    job::JobFaults faults;
    const job::MachineFormat format =
        job::ReadFormatText(job::FindBuiltInFormat(name)->text, name, faults);
    const plugin::FormatWriter writer(format);
    const MachineMember member = Purlin();
    for (auto _ : state) {
        std::vector<plugin::FormatFault> told;
        benchmark::DoNotOptimize(writer.WriteMember(member, {}, told).text);
    }
}
BENCHMARK_CAPTURE(ThroughAFormat, Records, "records");
BENCHMARK_CAPTURE(ThroughAFormat, Csv, "csv");

}  // namespace
