#pragma once

#include "support/ContourOf.h"

#include "camdata/holes/CViewData.h"
#include "camdata/platform/host/ZetNCHoleData.h"

#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <vector>

/// The features of one view, and how its coordinates become the member's.
struct RandomView {
    CViewData data;
    ZetArray<ZetNCHoleData> holes;
    ZetArray<ZetNCContour> contours;
};

/// Makes members that no host would: holes in rows, columns, heaps and at one place, slots in
/// slots, holes along slots, countersinks with and without a hole, holes set aside, odd sizes, and
/// now and then a coordinate that is no number or infinite. Each hole has a depth of its own, by
/// which it can be told from the others.
class RandomMember {
  public:
    explicit RandomMember(unsigned long long seed) : m_random(seed) {
        m_oddOneIn = Chance(12) ? 20 : 0;
        const int views = 1 + Number(3);
        for (int i = 0; i < views; ++i)
            AddView();
    }

    const std::vector<RandomView>& GetViews() const { return m_views; }

  private:
    using Values = std::initializer_list<double>;

    using Place = ZetGeomPoint2d;
    using Places = ZetArray<Place>;

    int Number(int below) {
        return static_cast<int>(m_random() % static_cast<unsigned long long>(below));
    }
    bool Chance(int oneIn) { return oneIn > 0 && Number(oneIn) == 0; }
    double OneOf(Values values) {
        return *(values.begin() + Number(static_cast<int>(values.size())));
    }
    double Odd() {
        constexpr double kInf = std::numeric_limits<double>::infinity();
        return OneOf({std::numeric_limits<double>::quiet_NaN(), kInf, -kInf, 1e300, 3e15, -0.0});
    }

    void AddView() {
        RandomView view;
        view.data.SetHoleFace(static_cast<eHoleFace>(OneOf({0, 0, 1, 2, 5})));
        view.data.SetFaceWidth(200.0);
        view.data.SetYValOffset(Chance(5) ? 12.5 : 0.0);
        view.data.SetDimFromOtherFace(Chance(5) ? -1.0 : 1.0);
        view.data.SetDimYNegate(Chance(5) ? -1.0 : 1.0);
        view.data.SetDimXNegate(Chance(5) ? -1.0 : 1.0);
        AddHoles(view.holes);
        AddContours(view.contours);
        m_views.push_back(view);
    }

    void AddHoles(ZetArray<ZetNCHoleData>& holes) {
        const int most = Chance(40) ? 400 : Chance(4) ? 45 : 12;
        const int count = Number(most + 1);
        const int pattern = Number(kPatterns);
        for (int i = 0; i < count; ++i) {
            ZetNCHoleData hole = HoleAt(pattern, i);
            if (i > 0 && Chance(6))
                PlaceBy(holes[Number(i)], hole);
            holes.append(hole);
        }
    }

    static constexpr int kPatterns = 6;

    ZetNCHoleData HoleAt(int pattern, int i) {
        ZetNCHoleData hole;
        hole.depth = ++m_holeCount;
        hole.size = OneOf({14, 14, 14, 18, 18.05, 10, 5, 0.2, 0, Chance(9) ? 300.0 : 14.0});
        hole.commented = Chance(25) ? 1 + Number(2) : 0;
        hole.kind = Chance(8) ? 4 : Chance(15) ? 1 : 0;
        const Place place = PlaceOf(pattern, i);
        hole.x = place.x;
        hole.y = place.y;
        // As far apart as holes of this size may be and still touch.
        if (pattern == kPatterns - 1 && Chance(2))
            hole.size = 15.95;
        if (Chance(7))
            MakeSlot(hole);
        if (Chance(m_oddOneIn))
            MakeOdd(hole);
        return hole;
    }

    void MakeOdd(ZetNCHoleData& hole) {
        double* const values[] = {&hole.x, &hole.y, &hole.size, &hole.slotLength};
        *values[Number(4)] = Odd();
    }

    Place PlaceOf(int pattern, int i) {
        const Place places[kPatterns] = {
            RowsOfTwo(i), Column(), Heap(), OnePlace(), Anywhere(), TouchingRow(i)};
        return places[pattern];
    }
    static Place RowsOfTwo(int i) { return {600.0 * (i / 2), i % 2 == 0 ? 60.0 : 140.0}; }
    Place Column() { return {2000.0, Number(4000) * 0.5}; }
    Place Heap() { return {Number(50) * 0.85, Number(50) * 1.0}; }
    Place OnePlace() { return {Number(7) * 1.0, OneOf({0.0, -0.0, 1.0})}; }
    Place Anywhere() { return {Number(6000000) * 1e-3, Number(200000) * 1e-3}; }
    /// The last comes first.
    Place TouchingRow(int i) { return {3000.0 - OneOf({14.1, 16.0, 16.04}) * i, 50.0}; }

    void MakeSlot(ZetNCHoleData& hole) {
        hole.slot = 1;
        hole.slotLength = OneOf({20, 40, 40.3, 40, 0, Chance(5) ? 900.0 : 40.0});
        hole.slotAngle = OneOf({0, 0, 90, 180, 30, 17.3});
    }

    /// At the place of another hole, or near it, along its axis.
    void PlaceBy(const ZetNCHoleData& other, ZetNCHoleData& hole) {
        const double angle = other.slotAngle * 3.1415926535 / 180.0;
        const double along = OneOf({0, 0, other.slotLength * 0.5, other.slotLength, 7, 0.4, 20.6});
        hole.x = other.x + std::cos(angle) * along;
        hole.y = other.y + std::sin(angle) * along;
        hole.slotAngle = other.slotAngle;
    }

    void AddContours(ZetArray<ZetNCContour>& contours) {
        const int count = Chance(30) ? 25 : Chance(2) ? 0 : Number(4);
        for (int i = 0; i < count; ++i)
            contours.append(Chance(6) ? CutOutline() : Opening());
    }

    ZetNCContour Opening() {
        const double x = 100.0 * Number(4) + OneOf({0, 0.04, 0.06, 0.1, 0.4, 0.6});
        const Place at = {Chance(m_oddOneIn) ? Odd() : x, 50.0 + OneOf({0, 0.04, 0.3})};
        const Place left = {at.x - 10, at.y - 10}, right = {at.x + 10, at.y - 10};
        const Place top = {at.x + 10, at.y + 10}, topLeft = {at.x - 10, at.y + 10};
        const int shape = Number(12);
        const Places points = shape == 0  ? Places{at}
                              : shape < 4 ? Places{left, right, top, left}
                                          : Places{left, right, top, topLeft, left};
        return ContourOf(ZetNCContour::eTypeInternal, points);
    }

    /// Notched at its upper right end, or not at all.
    ZetNCContour CutOutline() {
        const double inner = 900.0 - OneOf({0, 40, 40.3});
        // clang-format off
        return ContourOf(ZetNCContour::eTypeExternal, {{0, 0}, {900, 0}, {900, 150}, {inner, 150},
                                                       {inner, 200}, {0, 200}, {0, 0}});
        // clang-format on
    }

    std::mt19937_64 m_random;
    int m_oddOneIn = 0;
    int m_holeCount = 0;
    std::vector<RandomView> m_views;
};
