#pragma once

#include <string>
#include <utility>
#include <vector>

/// A line of a chart: a name and points, all values above 0.
struct ChartLine {
    std::string name;
    std::vector<std::pair<double, double>> points;
};

/// A chart with logarithmic axes as SVG, each decade with its line.
std::string LogChart(const std::string& title,
                     const std::string& acrossName,
                     const std::vector<ChartLine>& lines);
