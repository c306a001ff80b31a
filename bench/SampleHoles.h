#pragma once

#include "support/HoleBuilder.h"
#include "support/TestMember.h"

#include <random>
#include <utility>
#include <vector>

/// Holes in arrangements that make gathering easy or hard.

using Holes = std::vector<CHoleAddlInfo>;

/// Holes of 14 two by two, every 60 mm.
inline Holes Pattern(long count) {
    Holes holes;
    for (long i = 0; i < count; ++i)
        holes.push_back(HoleAt(60.0 * static_cast<double>(i / 2), i % 2 == 0 ? 60 : 140).Round(14));
    return holes;
}

inline double Drawn(std::mt19937_64& random, double below) {
    return static_cast<double>(random() % 1000000) * below * 1e-6;
}

/// At random places of a web of some length, at others each time.
inline Holes Scattered(long count, double length) {
    static std::mt19937_64 random(1);
    Holes holes;
    for (long i = 0; i < count; ++i)
        holes.push_back(HoleAt(Drawn(random, length), Drawn(random, 200)).Round(14));
    return holes;
}

inline Holes Random(long count) {
    return Scattered(count, 12000);
}

/// All at one X.
inline Holes Column(long count) {
    Holes holes;
    for (long i = 0; i < count; ++i)
        holes.push_back(HoleAt(3000, 20.0 * static_cast<double>(i)).Round(14));
    return holes;
}

/// So close that most are duplicates.
inline Holes Dense(long count) {
    return Scattered(count, 1200);
}

/// One hole in a hundred is as wide as two hundred others.
inline Holes LargeAndSmall(long count) {
    Holes holes = Pattern(count);
    for (std::size_t i = 0; i < holes.size(); i += 100)
        holes[i] = HoleAt(holes[i].GetXPos(), 5000).Round(2800);
    return holes;
}

/// Every tenth is a slot, and every second of these holds a hole.
inline Holes Slots(long count) {
    Holes holes = Pattern(count);
    for (std::size_t i = 0; i + 1 < holes.size(); i += 10) {
        const double x = holes[i].GetXPos();
        holes[i] = HoleAt(x, 60).Slot(14, 40);
        if (i % 20 == 0)
            holes[i + 1] = HoleAt(x + 5, 60).Round(14);
    }
    return holes;
}

/// A member whose front view has these holes, not gathered yet.
inline TestMember MemberWith(const Holes& holes) {
    ZetArray<ZetNCHoleData> data;
    for (const CHoleAddlInfo& hole : holes)
        data.append(hole.GetHoleData());
    ZetArray<ZetNCView> views;
    views.append({});
    views.first().setViewPos(1);
    views.first().setHoles(std::move(data));
    TestMember member;
    member.m_structure.setViews(std::move(views));
    return member;
}
