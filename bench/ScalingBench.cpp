#include "LogChart.h"
#include "SampleHoles.h"
#include "SampleOutlines.h"
#include "support/PlainGathering.h"

#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#ifdef CAMDATA_BENCH_CLIPPER
#include <polyclipping/clipper.hpp>
#endif

// How time grows with the number of holes of a member and of vertices of an outline: the library
// beside the plain loops of the tests and beside Clipper 6.4 where it is installed, in turn.
// Processor time, the best of many: what else runs on the machine adds least to that.
//
// camdata_scaling_bench FOLDER prints two tables and draws gathering.svg and outlines.svg there.

namespace {

double ProcessorTime() {
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// What results are written to, so that no compiler leaves their making out.
volatile long theResult = 0;

/// Microseconds that an operation on each of some originals takes, on average of a round through
/// them; of the best round in some tenths of a second. `copy` makes what it works on.
template <typename Originals, typename Copy, typename Operation>
double BestTime(const Originals& originals, const Copy& copy, const Operation& operation) {
    constexpr double kLongest = 0.4;
    double best = std::numeric_limits<double>::infinity();
    double total = 0.0;
    for (int round = 0; round < 3 || (total < kLongest && round < 20000); ++round) {
        double taken = 0.0;
        for (const auto& original : originals) {
            auto work = copy(original);
            const double start = ProcessorTime();
            operation(work);
            taken += ProcessorTime() - start;
        }
        best = std::min(best, taken);
        total += taken;
    }
    return best * 1e6 / static_cast<double>(originals.size());
}

void Write(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        std::exit(1);
    }
}

double TimeOfGathering(const std::vector<TestMember>& members) {
    return BestTime(
        members,
        [](const TestMember& member) { return member; },
        [](TestMember& member) { member.GetAndSortHolesNotches(); });
}

double TimeOfPlainGathering(const TestMember& original) {
    const ZetArray<ZetNCHoleData> holes = original.m_structure.getViews().first().getHoles();
    return BestTime(
        std::array{0},
        [](int) { return PlainMember(); },
        [&](PlainMember& member) {
            member.TakeHoles(holes, CViewData());
            member.Finish();
        });
}

/// By how much the logarithm of the time grows with that of the number, between two points.
double Exponent(const std::pair<double, double>& from, const std::pair<double, double>& to) {
    return std::log(to.second / from.second) / std::log(to.first / from.first);
}

/// Samples of a kind, of any size.
template <typename Sample>
struct Kind {
    const char* name;
    Sample (*make)(long);
};

using Arrangement = Kind<Holes>;
constexpr Arrangement kArrangements[] = {
    {"two by two",      Pattern      },
    {"random places",   Random       },
    {"one column",      Column       },
    {"dense",           Dense        },
    {"large and small", LargeAndSmall},
};
constexpr long kHoleCounts[] = {100, 1000, 10000, 100000};
/// Plain loops take minutes beyond it.
constexpr long kMaxPlainHoles = 10000;

/// Members of one size, with as many holes in all as one of 10,000 has: what a processor learns of
/// one small member, again and again, would flatter the small ones.
std::vector<TestMember> MembersOf(const Arrangement& arrangement, long count) {
    std::vector<TestMember> members;
    for (long holes = 0; holes < 10000; holes += count)
        members.push_back(MemberWith(arrangement.make(count)));
    return members;
}

/// Prints the row of an arrangement and returns the lines of its times.
std::pair<ChartLine, ChartLine> MeasureGathering(const Arrangement& arrangement) {
    ChartLine library = {arrangement.name, {}};
    ChartLine plain = {std::string(arrangement.name) + ", plain loops", {}};
    std::printf("| %s |", arrangement.name);
    for (const long count : kHoleCounts) {
        const std::vector<TestMember> members = MembersOf(arrangement, count);
        library.points.push_back({static_cast<double>(count), TimeOfGathering(members)});
        std::printf(" %.4g |", library.points.back().second);
        if (count <= kMaxPlainHoles)
            plain.points.push_back(
                {static_cast<double>(count), TimeOfPlainGathering(members.front())});
    }
    const double times = plain.points.back().second / library.points[2].second;
    std::printf(" %.2f | %.2f | %.0f |\n",
                Exponent(library.points[0], library.points[2]),
                Exponent(library.points[0], library.points[3]),
                times);
    return {library, plain};
}

void MeasureGatherings(const std::string& folder) {
    std::printf(
        "Gathering a member of 100 to 100,000 holes, us; exponents; times quicker than plain\n");
    std::vector<ChartLine> lines;
    for (const Arrangement& arrangement : kArrangements) {
        const auto [library, plain] = MeasureGathering(arrangement);
        lines.push_back(library);
        if (arrangement.make == Random)
            lines.push_back(plain);
    }
    Write(folder + "/gathering.svg",
          LogChart("Gathering the holes of a member, microseconds", "holes of the member", lines));
}

/// Of an operation that is too short to ask the clock before and after it.
template <typename Operation>
double BestTimeOfShort(const Operation& operation) {
    constexpr int kRepeats = 20;
    const auto repeat = [&](int) {
        for (int i = 0; i < kRepeats; ++i)
            operation();
    };
    return BestTime(
               std::array{0}, [](int) { return 0; }, repeat) /
           kRepeats;
}

double TimeOfPieces(const OutlinePoints& points) {
    const ZetGeomAugPolygon outline(points, 1e-6);
    return BestTimeOfShort(
        [&] { theResult = outline.getMinRectangle().subtract(outline, -0.05).length(); });
}

#ifdef CAMDATA_BENCH_CLIPPER

constexpr double kUnitsPerMm = 1e4;

ClipperLib::Path PathOf(const OutlinePoints& points) {
    ClipperLib::Path path;
    path.reserve(static_cast<std::size_t>(points.length()));
    for (const ZetGeomPoint2d& p : points)
        path.emplace_back(std::llround(p.x * kUnitsPerMm), std::llround(p.y * kUnitsPerMm));
    return path;
}

/// The upright rectangle around a path.
ClipperLib::Path BoxOf(const ClipperLib::Path& path) {
    ClipperLib::IntPoint low = path.front();
    ClipperLib::IntPoint high = low;
    for (const ClipperLib::IntPoint& p : path) {
        low = {std::min(low.X, p.X), std::min(low.Y, p.Y)};
        high = {std::max(high.X, p.X), std::max(high.Y, p.Y)};
    }
    return {
        low, {high.X, low.Y },
         high, {low.X,  high.Y}
    };
}

/// The same from the outline's points to points of pieces, in the rectangle that `rectangleOf`
/// makes of the outline.
template <typename RectangleOf>
double TimeOfClipper(const OutlinePoints& points, const RectangleOf& rectangleOf) {
    return BestTimeOfShort([&] {
        const ClipperLib::Path path = PathOf(points);
        ClipperLib::Clipper clipper;
        clipper.AddPath(rectangleOf(path), ClipperLib::ptSubject, true);
        clipper.AddPath(path, ClipperLib::ptClip, true);
        ClipperLib::Paths pieces;
        clipper.Execute(ClipperLib::ctDifference, pieces);
        for (const ClipperLib::Path& piece : pieces) {
            OutlinePoints found;
            for (const ClipperLib::IntPoint& p : piece)
                found.append({static_cast<double>(p.X) / kUnitsPerMm,
                              static_cast<double>(p.Y) / kUnitsPerMm});
            theResult = found.length();
        }
    });
}

/// Clipper looks for no turned rectangle.
double TimeOfClipperUpright(const OutlinePoints& points) {
    return TimeOfClipper(points, BoxOf);
}

/// In the library's rectangle, which it is given.
double TimeOfClipperInSame(const OutlinePoints& points) {
    const ClipperLib::Path rectangle =
        PathOf(ZetGeomAugPolygon(points, 1e-6).getMinRectangle().getVertices());
    return TimeOfClipper(points, [&](const ClipperLib::Path&) { return rectangle; });
}

#endif

using OutlineKind = Kind<OutlinePoints>;
constexpr OutlineKind kOutlines[] = {
    {"upright", Comb      },
    {"turned",  TurnedComb},
};
constexpr long kVertexCounts[] = {8, 20, 100, 500, 2000};

void MeasureOutlines(const std::string& folder) {
    std::printf("Pieces that an outline of 8 to 2,000 vertices leaves free, us\n");
    std::vector<ChartLine> lines;
    const auto measure = [&](const std::string& name, const OutlineKind& kind, auto timeOf) {
        ChartLine line = {name, {}};
        std::printf("| %s |", name.c_str());
        for (const long count : kVertexCounts) {
            line.points.push_back({static_cast<double>(count), timeOf(kind.make(count))});
            std::printf(" %.3g |", line.points.back().second);
        }
        std::printf("\n");
        lines.push_back(line);
    };
    for (const OutlineKind& kind : kOutlines) {
        measure(kind.name, kind, TimeOfPieces);
#ifdef CAMDATA_BENCH_CLIPPER
        const std::string clipper = std::string(kind.name) + ", Clipper 6.4";
        measure(clipper, kind, TimeOfClipperUpright);
        measure(clipper + " in the same rectangle", kind, TimeOfClipperInSame);
#endif
    }
    Write(folder + "/outlines.svg",
          LogChart("Pieces of an outline, microseconds", "vertices of the outline", lines));
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: camdata_scaling_bench FOLDER\n");
        return 2;
    }
    MeasureGatherings(arguments[1]);
    MeasureOutlines(arguments[1]);
}
