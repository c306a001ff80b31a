#include "SampleOutlines.h"
#include "support/ContourOf.h"

#include "camdata/holes/CViewData.h"
#include "camdata/notches/CNotchAddInfo.h"
#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <benchmark/benchmark.h>

// The pieces that an outline leaves free of its bounding rectangle, by themselves and as notches.

namespace {

using MakeOutline = OutlinePoints (*)(long);

void Pieces(benchmark::State& state, MakeOutline makeOutline) {
    const ZetGeomAugPolygon outline(makeOutline(state.range(0)), 1e-6);
    long pieces = 0;
    for (auto _ : state) {
        const auto free = outline.getMinRectangle().subtract(outline, -0.05);
        pieces = free.length();
        benchmark::DoNotOptimize(&free);
    }
    state.counters["vertices"] = static_cast<double>(outline.getLength());
    state.counters["pieces"] = static_cast<double>(pieces);
}

void Notches(benchmark::State& state, MakeOutline makeOutline) {
    OutlinePoints points = makeOutline(state.range(0));
    points.append(points.first());
    const ZetNCContour contour = ContourOf(ZetNCContour::eTypeExternal, points);
    long count = 0;
    for (auto _ : state) {
        ZetArray<CNotchAddInfo> notches;
        CNotchAddInfo first;
        first.SetNotchData(contour, CViewData(), notches);
        count = notches.length() + 1;
        benchmark::DoNotOptimize(&first);
    }
    state.counters["notches"] = static_cast<double>(count);
}

void Vertices(benchmark::internal::Benchmark* bench) {
    for (const long count : {8, 20, 100, 500, 2000})
        bench->Arg(count);
    bench->MinTime(0.05)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(Pieces, comb, Comb)->Apply(Vertices);
BENCHMARK_CAPTURE(Pieces, turned, TurnedComb)->Apply(Vertices);
BENCHMARK_CAPTURE(Notches, comb, Comb)->Apply(Vertices);

}  // namespace
