#include "plugin/rules/FlangeZero.h"

#include "profiles/SectionWalls.h"

#include <algorithm>

namespace plugin {

namespace {

bool Changes(const job::FlangeZero& zero) {
    return zero.zero != 0.0 || zero.isReversed;
}

/// One zero line at work: how a coordinate across the flange and an angle change.
class Mover {
  public:
    explicit Mover(const job::FlangeZero& zero) : m_zero(zero) {}

    ZetNCHoleData operator()(ZetNCHoleData hole) const {
        MoveY(hole.y);
        if (hole.slot != 0)
            Turn(hole.slotAngle);
        return hole;
    }
    ZetNCContour operator()(ZetNCContour contour) const {
        for (double& y : contour.yValues)
            MoveY(y);
        for (double& bulge : contour.bulges)
            Turn(bulge);
        return contour;
    }
    ZetNCMark operator()(ZetNCMark mark) const {
        for (ZetGeomPoint2d& point : mark.points)
            MoveY(point.y);
        return mark;
    }
    ZetNCNumeration operator()(ZetNCNumeration text) const {
        MoveY(text.y);
        Turn(text.angle);
        return text;
    }

    template <typename Feature>
    ZetArray<Feature> MoveAll(ZetArray<Feature> features) const {
        std::transform(features.begin(), features.end(), features.begin(), *this);
        return features;
    }

  private:
    void MoveY(double& y) const { y = m_zero.isReversed ? m_zero.zero - y : y - m_zero.zero; }
    void Turn(double& value) const { value = m_zero.isReversed ? -value : value; }

    job::FlangeZero m_zero;
};

void Move(ZetNCView& view, const job::FlangeZero& zero) {
    const Mover mover(zero);
    view.setHoles(mover.MoveAll(view.getHoles()));
    view.setExternalContours(mover.MoveAll(view.getExternalContours()));
    view.setInternalContours(mover.MoveAll(view.getInternalContours()));
    view.setMarks(mover.MoveAll(view.getMarks()));
    view.setNumerations(mover.MoveAll(view.getNumerations()));
}

}  // namespace

void ApplyFlangeZeros(ZetNCStructure& structure, const job::MemberType& type) {
    if (!Changes(type.topFlange) && !Changes(type.bottomFlange))
        return;
    ZetArray<ZetNCView> views = structure.getViews();
    for (ZetNCView& view : views) {
        if (view.getViewPos() == profiles::kTop)
            Move(view, type.topFlange);
        else if (view.getViewPos() == profiles::kBottom)
            Move(view, type.bottomFlange);
    }
    structure.setViews(std::move(views));
}

double LowerEdgeOf(double width, const job::FlangeZero& zero) {
    return zero.isReversed ? zero.zero - width : -zero.zero;
}

double FileYOf(double y, const job::FlangeZero& zero) {
    return zero.isReversed ? zero.zero - y : y + zero.zero;
}

}  // namespace plugin
