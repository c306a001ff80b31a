#include "support/HoleBuilder.h"

#include "camdata/platform/text/ZetString.h"
#include "camdata/tolerance/CMxGeom.h"

#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#ifdef CAMDATA_BENCH_FMT
#include <fmt/format.h>
#endif

// Lines of a report and rounding, each beside the C library's way to the same result,
// and beside {fmt} where it is installed.

namespace {

std::vector<double> Values() {
    std::mt19937_64 random(1);
    std::vector<double> values;
    for (int i = 0; i < 1024; ++i)
        values.push_back(static_cast<double>(random() % 12000000) * 1e-3 + 1e-5);
    return values;
}

template <typename Operation>
void ForValues(benchmark::State& state, const Operation& operation) {
    const std::vector<double> values = Values();
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(operation(values[i++ % values.size()]));
}

void LinePrintf(benchmark::State& state) {
    ForValues(state, [](double value) {
        char line[128];
        return std::snprintf(line,
                             sizeof line,
                             "%s*Warning*: %d of (%s) at %.1f and %3.1f",
                             "          ",
                             12,
                             "P1042",
                             value,
                             value);
    });
}

#ifdef CAMDATA_BENCH_FMT
void LineFmt(benchmark::State& state) {
    ForValues(state, [](double value) {
        char line[128];
        return fmt::format_to(line,
                              "{}*Warning*: {} of ({}) at {:.1f} and {:3.1f}",
                              "          ",
                              12,
                              "P1042",
                              value,
                              value) -
               line;
    });
}
BENCHMARK(LineFmt);
#endif

void Line(benchmark::State& state) {
    ForValues(state, [](double value) {
        return ZetString::format(L"%s*Warning*: %d of (%s) at %.1f and %3.1f",
                                 L"          ",
                                 12,
                                 L"P1042",
                                 value,
                                 value)
            .length();
    });
}

/// The same line by a format that the compiler does not see.
void LineFromOutside(benchmark::State& state) {
    const ZetString format = L"%s*Warning*: %d of (%s) at %.1f and %3.1f";
    ForValues(state, [&](double value) {
        return ZetString::formatRuntime(format, L"          ", 12, L"P1042", value, value).length();
    });
}

void HoleMessage(benchmark::State& state) {
    const CHoleAddlInfo hole = HoleAt(1234.5, 60.0).Round(14);
    for (auto _ : state)
        benchmark::DoNotOptimize(hole.GetHoleMsg().length());
}

void RoundPrintf(benchmark::State& state) {
    ForValues(state, [](double value) {
        char text[64];
        std::snprintf(text, sizeof text, "%.3f", value);
        return std::strtod(text, nullptr);
    });
}

void Round(benchmark::State& state) {
    ForValues(state, [](double value) { return CMxGeom::Round_CAM(value, 3); });
}

void RoundToStep(benchmark::State& state) {
    ForValues(state, [](double value) { return CMxGeom::Round_CAM(value, 0.5); });
}

BENCHMARK(LinePrintf);
BENCHMARK(Line);
BENCHMARK(LineFromOutside);
BENCHMARK(HoleMessage);
BENCHMARK(RoundPrintf);
BENCHMARK(Round);
BENCHMARK(RoundToStep);

}  // namespace
