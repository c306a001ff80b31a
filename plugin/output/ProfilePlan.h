#pragma once

#include "cutting/Planner.h"
#include "plugin/rules/BarStock.h"

#include "camdata/member/MemberNesting.h"
#include "camdata/nesting/CMxParts.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace plugin {

/// What a plan counts as cost.
enum class PlanUnit {
    kBars,    ///< one stock: its bars
    kLength,  ///< several: their length, 0.001 mm
    kPrice,   ///< their prices, in thousandths
};

/// Pieces of one member that are cut from bars. Texts are UTF-8: all that goes by them is files.
struct BarPart {
    std::string mark;
    std::string file;        ///< its NC file, without folder; "": not known
    std::size_t member = 0;  ///< its position in the run
};

/// The members of one group that have a profile and material in common.
struct PartsOfProfile {
    std::size_t group = 0;  ///< position in Job::groups
    ZetString profileName;
    ZetString material;
    double weightPerMetre = 0.0;  ///< kg; 0: not known
    std::vector<BarPart> parts;
    cutting::Demand demand;  ///< by part
};

/// How they are cut.
struct ProfilePlan : PartsOfProfile {
    job::BarPlan kind = job::BarPlan::kGiven;
    PlanUnit unit = PlanUnit::kBars;
    std::vector<BarStock> stocks;
    std::vector<cutting::Stock> cutStocks;  ///< the same, as they are planned with
    cutting::Plan plan;
    std::optional<cutting::Cost> firstFit;  ///< cost of first-fit-decreasing, of all pieces only
    std::optional<cutting::Cost> given;  ///< of the library's order, on the longest bars; likewise
    long firstBar = 1;                   ///< number of its first bar among the bars of the run

    bool IsComplete() const { return plan.uncut.empty(); }
    /// That no plan goes below; nothing where pieces are left.
    std::optional<cutting::Cost> GetBound() const;
    /// Beside the library's order, where both cut all pieces; 0: nothing, or not known.
    cutting::Cost GetSaving() const;
};

/// Makes the library's nests of some parts.
using NestMaker = std::function<void(ZetArray<CMxParts>, const camdata::detail::NestTaker&)>;

/// Who makes the plans of each kind.
struct PlanMakers {
    cutting::Planner least;
    NestMaker given;
};

/// The plan of this kind from these bars, as the job asks for it; `threads` may share its making.
ProfilePlan MakeProfilePlan(const job::Job& job,
                            PartsOfProfile parts,
                            job::BarPlan kind,
                            std::vector<BarStock> stocks,
                            const PlanMakers& makers,
                            unsigned threads = 1);

/// A length in 0.001 mm; pieces are rounded up.
cutting::Length PieceLength(double length);
/// In mm.
double Millimetres(cutting::Length length);

/// A piece on a bar, in cutting order.
struct PieceOnBar {
    std::size_t part = 0;
    cutting::Length position = 0;  ///< of its start, from the bar's start
    cutting::Length length = 0;
    long number = 0;  ///< of the piece among those of its part, from 1
};

/// The pieces of each bar in turn; numbers go on from bar to bar.
class BarWalk {
  public:
    explicit BarWalk(const ProfilePlan& plan) : m_plan(plan), m_numbers(plan.parts.size()) {}
    /// Of the next bar, which is cut like this; lent until the next call.
    const std::vector<PieceOnBar>& Next(const cutting::PlannedBars& bars) &;
    /// Passes over so many bars that are cut like this.
    void Skip(const cutting::PlannedBars& bars, cutting::Count count);

  private:
    const ProfilePlan& m_plan;
    std::vector<long> m_numbers;  ///< by part
    std::vector<PieceOnBar> m_pieces;
};

/// What a plan comes to; lengths in mm.
struct PlanTotals {
    long bars = 0;
    long pieces = 0;
    long uncut = 0;  ///< pieces that no bar is long enough or left for
    double barLength = 0.0;
    double pieceLength = 0.0;
    double kerfLoss = 0.0;
    double kept = 0.0;      ///< as KeptLength
    double scrapped = 0.0;  ///< other off-cuts and grips

    PlanTotals& operator+=(const PlanTotals& other);
    double GetUtilisation() const { return barLength > 0.0 ? pieceLength / barLength : 0.0; }
};
PlanTotals TotalsOf(const ProfilePlan& plan);

/// Whether remnants are among its bars, used or not.
bool HasRemnants(const ProfilePlan& plan);
/// Whether the off-cut of these bars is worth keeping.
bool IsKept(const ProfilePlan& plan, const cutting::PlannedBars& bars);
/// Length of a bar's off-cut that is kept, with the grip that is still on it; else 0. In mm.
double KeptLength(const ProfilePlan& plan, const cutting::PlannedBars& bars);

/// "HAT60x1.2, S350GD", without a material "HAT60x1.2".
ZetString NameOfProfile(const PartsOfProfile& parts);
/// A cost of the plan: "12 bars", "144.0 m", "1250.500"; "-" where there is none to compare with.
ZetString DescribeCost(const ProfilePlan& plan, std::optional<cutting::Cost> cost);
/// "proved least", or how much above the least it may be.
ZetString DescribeProof(const ProfilePlan& plan);
/// The pieces that no bar is long enough or left for: "3 of A, 1 of B"; of many marks the first.
ZetString DescribeUncut(const ProfilePlan& plan);
/// A cost as a number in its unit: bars, mm or price.
double CostNumber(const ProfilePlan& plan, cutting::Cost cost);

}  // namespace plugin
