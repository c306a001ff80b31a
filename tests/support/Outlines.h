#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/text/ZetString.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

/// Outlines for tests of polygons and notches, and ways to turn one into another.

using OutlinePoints = ZetArray<ZetGeomPoint2d>;

inline std::string TextOf(const OutlinePoints& points) {
    std::string text;
    for (const ZetGeomPoint2d& p : points)
        text += ZetString::format(L"(%g,%g)", p.x, p.y).toUtf8();
    return text;
}

inline OutlinePoints Reversed(OutlinePoints points) {
    std::reverse(points.begin(), points.end());
    return points;
}

inline OutlinePoints StartingAt(OutlinePoints points, long start) {
    std::rotate(points.begin(), points.begin() + start, points.end());
    return points;
}

template <typename Map>
OutlinePoints Mapped(OutlinePoints points, Map map) {
    std::transform(points.begin(), points.end(), points.begin(), map);
    return points;
}

inline OutlinePoints MirroredInX(const OutlinePoints& points) {
    return Mapped(points, [](const ZetGeomPoint2d& p) { return ZetGeomPoint2d{-p.x, p.y}; });
}

inline OutlinePoints TurnedBy90(const OutlinePoints& points) {
    return Mapped(points, [](const ZetGeomPoint2d& p) { return ZetGeomPoint2d{-p.y, p.x}; });
}

inline OutlinePoints TurnedBy(const OutlinePoints& points, double degrees) {
    const double angle = degrees * 3.14159265358979323846 / 180.0;
    const double cosine = std::cos(angle), sine = std::sin(angle);
    return Mapped(points, [=](const ZetGeomPoint2d& p) {
        return ZetGeomPoint2d{p.x * cosine - p.y * sine, p.x * sine + p.y * cosine};
    });
}

/// A disc of `count` chords around (x, y).
inline OutlinePoints Disc(double x, double y, double radius, int count) {
    OutlinePoints points;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * 3.14159265358979323846 * i / count;
        points.append({x + radius * std::cos(angle), y + radius * std::sin(angle)});
    }
    return points;
}

/// An outline whose notches are known because it was made from them.
struct NotchedOutline {
    OutlinePoints points;  ///< counter-clockwise
    std::vector<OutlinePoints> notches;
};

/// A rectangle with rectangular pockets of random place, width and depth along its lower and upper
/// side, some of them at the ends.
inline NotchedOutline RandomNotchedOutline(std::mt19937_64& random) {
    const auto number = [&](int low, int high) {
        return (low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1))) * 0.1;
    };
    const double length = number(5000, 60000);
    const double height = number(800, 3000);
    NotchedOutline result;
    const auto addSide = [&](double base, double inward, bool forward) {
        std::vector<ZetGeomPoint2d> way;
        const int pockets = static_cast<int>(random() % 5);
        const double pitch = length / (pockets == 0 ? 1 : pockets);
        way.push_back({0.0, base});
        for (int i = 0; i < pockets; ++i) {
            const bool atStart = i == 0 && random() % 2 == 0;
            const bool atEnd = i == pockets - 1 && random() % 2 == 0 && !atStart;
            const double from = atStart ? 0.0 : i * pitch + number(5, 20);
            const double to = atEnd ? length : (i + 1) * pitch - number(25, 50);
            const double level = base + inward * number(5, 390);
            if (atStart)
                way.pop_back();
            else
                way.push_back({from, base});
            way.push_back({from, level});
            way.push_back({to, level});
            if (!atEnd)
                way.push_back({to, base});
            // clang-format off
            result.notches.push_back({{from, base}, {to, base}, {to, level}, {from, level}});
            // clang-format on
        }
        if (way.back().x != length)
            way.push_back({length, base});
        if (!forward)
            std::reverse(way.begin(), way.end());
        for (const ZetGeomPoint2d& point : way)
            result.points.append(point);
    };
    addSide(0.0, 1.0, true);
    addSide(height, -1.0, false);
    return result;
}

/// A star around the origin: every angle has one random radius, so it never crosses itself.
inline OutlinePoints RandomStar(std::mt19937_64& random) {
    OutlinePoints points;
    const int count = 3 + static_cast<int>(random() % 60);
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * 3.14159265358979323846 * i / count;
        const double radius = 20.0 + static_cast<double>(random() % 10000) * 0.1;
        points.append({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return points;
}
