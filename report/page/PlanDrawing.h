#pragma once

#include <string>
#include <vector>

namespace report {

/// One piece of a bar, mm.
struct PlanPiece {
    std::string mark;
    double start = 0.0;
    double length = 0.0;
};

/// Bars that are cut alike.
struct PlanBar {
    long count = 1;
    double length = 0.0;
    std::string remnant;            ///< what is told of the remnant that it is; "": a new bar
    double kerf = 0.0;              ///< width of a saw cut
    std::vector<PlanPiece> pieces;  ///< in cutting order
    double gripEnd = 0.0;           ///< at the end; nothing is cut from it
    double offcut = 0.0;            ///< before it
    bool isOffcutKept = false;
};

/// What a group's bars of one profile are cut into.
struct CuttingPlan {
    std::string title;
    std::string summary;  ///< figures in one line
    long firstBar = 1;    ///< number of the first bar
    std::vector<PlanBar> bars;
};

/// What the colours of a bar say, as HTML.
std::string PlanKeyHtml();
/// A plan as HTML: each bar to scale, all in the scale of the longest one.
std::string PlanHtml(const CuttingPlan& plan);

}  // namespace report
