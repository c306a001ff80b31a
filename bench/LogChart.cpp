#include "LogChart.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <iterator>

namespace {

constexpr double kLeft = 60.0;
constexpr double kTop = 40.0;
constexpr double kWidth = 480.0;
constexpr double kHeight = 300.0;
constexpr const char* kColours[] = {
    "#005f9e", "#c05000", "#3a7d2c", "#7a4fa0", "#008080", "#a02050"};

template <typename... Values>
std::string Print(const char* format, Values... values) {
    char text[512];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

/// Whole decades around some values.
struct Axis {
    int low = 100;
    int high = -100;

    void Take(double value) {
        low = std::min(low, static_cast<int>(std::floor(std::log10(value))));
        high = std::max(high, static_cast<int>(std::ceil(std::log10(value))));
    }
    double Part(double value) const { return (std::log10(value) - low) / std::max(high - low, 1); }
};

class Chart {
  public:
    explicit Chart(const std::vector<ChartLine>& lines) {
        for (const ChartLine& line : lines)
            for (const auto& [x, y] : line.points) {
                m_across.Take(x);
                m_up.Take(y);
            }
    }

    std::string Grid() const {
        std::string svg;
        for (int decade = m_across.low; decade <= m_across.high; ++decade) {
            const double value = std::pow(10.0, decade);
            svg += Print(
                "<path d=\"M%.1f %.1fv%.1f\"/><text x=\"%.1f\" y=\"%.1f\" "
                "text-anchor=\"middle\">%.10g</text>\n",
                X(value),
                kTop,
                kHeight,
                X(value),
                kTop + kHeight + 18.0,
                value);
        }
        for (int decade = m_up.low; decade <= m_up.high; ++decade) {
            const double value = std::pow(10.0, decade);
            svg += Print(
                "<path d=\"M%.1f %.1fh%.1f\"/><text x=\"%.1f\" y=\"%.1f\" "
                "text-anchor=\"end\">%.10g</text>\n",
                kLeft,
                Y(value),
                kWidth,
                kLeft - 6.0,
                Y(value) + 4.0,
                value);
        }
        return svg;
    }

    std::string Line(const ChartLine& line, std::size_t position) const {
        const char* const colour = kColours[position % std::size(kColours)];
        std::string points;
        for (const auto& [x, y] : line.points)
            points += Print("%.1f,%.1f ", X(x), Y(y));
        const double y = kTop + 14.0 + 16.0 * static_cast<double>(position);
        return Print("<polyline points=\"%s\" style=\"stroke:%s\"/>", points.c_str(), colour) +
               Print("<text x=\"%.1f\" y=\"%.1f\" style=\"fill:%s\">%s</text>\n",
                     kLeft + 8.0,
                     y,
                     colour,
                     line.name.c_str());
    }

  private:
    double X(double value) const { return kLeft + kWidth * m_across.Part(value); }
    double Y(double value) const { return kTop + kHeight * (1.0 - m_up.Part(value)); }

    Axis m_across;
    Axis m_up;
};

}  // namespace

std::string LogChart(const std::string& title,
                     const std::string& acrossName,
                     const std::vector<ChartLine>& lines) {
    const Chart chart(lines);
    std::string svg =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 580 390\" font-size=\"12\" "
        "font-family=\"sans-serif\">\n<style>path{stroke:#ccc}"
        "polyline{fill:none;stroke-width:2}</style>\n<rect width=\"580\" height=\"390\" "
        "fill=\"#fff\"/>\n";
    svg += Print("<text x=\"%.0f\" y=\"24\" font-size=\"14\">%s</text>\n", kLeft, title.c_str());
    svg += chart.Grid();
    for (std::size_t i = 0; i < lines.size(); ++i)
        svg += chart.Line(lines[i], i);
    return svg + Print("<text x=\"%.0f\" y=\"382\" text-anchor=\"end\">%s</text>\n</svg>\n",
                       kLeft + kWidth,
                       acrossName.c_str());
}
