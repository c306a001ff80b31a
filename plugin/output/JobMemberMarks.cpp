#include "plugin/rules/JobMember.h"

namespace plugin {

namespace {

/// A place of a view in the frame of its face, as holes get there.
ZetGeomPoint2d OnFace(const ZetGeomPoint2d& point, const CViewData& view) {
    ZetNCHoleData data;
    data.x = point.x;
    data.y = point.y;
    CHoleAddlInfo place;
    place.SetHoleData(data);
    place.CorrectData(view);
    return {place.GetXPos(), place.GetYPos()};
}

/// Each axis that the view turns round mirrors an angle.
double OnFace(double angle, const CViewData& view) {
    for (const double factor :
         {view.GetDimXNegate(), view.GetDimYNegate(), view.GetDimFromOtherFace()})
        angle = factor < 0.0 ? -angle : angle;
    return angle;
}

MachineOperation OperationOf(const ZetNCMark& mark, const CViewData& view) {
    MachineOperation operation;
    operation.kind = MachineOperationKind::kMark;
    operation.face = view.GetHoleFace();
    operation.mark = mark.kind == ZetNCMark::eKindPowder ? kPowderMark : kPunchMark;
    for (const ZetGeomPoint2d& point : mark.points)
        operation.points.append(OnFace(point, view));
    if (!operation.points.isEmpty()) {
        operation.x = operation.points.first().x;
        operation.y = operation.points.first().y;
    }
    return operation;
}

MachineOperation OperationOf(const ZetNCNumeration& text, const CViewData& view) {
    const ZetGeomPoint2d place = OnFace({text.x, text.y}, view);
    MachineOperation operation;
    operation.kind = MachineOperationKind::kMark;
    operation.face = view.GetHoleFace();
    operation.mark = kTextMark;
    operation.x = place.x;
    operation.y = place.y;
    operation.angle = OnFace(text.angle, view);
    operation.height = text.textHeight;
    operation.text = text.text;
    return operation;
}

}  // namespace

/// A standard face as it is; a plane of its own as a record that lies on it, with no face where
/// there is none.
CViewData JobMember::ViewDataOf(int viewPosition) const {
    CViewData data;
    data.SetHoleFace(FaceAtView(viewPosition));
    if (data.GetHoleFace() != eHoleFaceNone)
        return data;
    for (const auto* holes : {&m_holes, &m_cskHoles, &m_duplicateHoles})
        for (const CHoleAddlInfo& hole : *holes)
            if (ViewOf(hole) == viewPosition)
                return hole.GetViewData();
    return data;
}

/// Marks and texts: records where the member type asks for them.
void JobMember::MakeMarks() {
    for (const ZetNCView& view : m_structure.getViews()) {
        if (view.getMarks().isEmpty() && view.getNumerations().isEmpty())
            continue;
        const CViewData data = ViewDataOf(view.getViewPos());
        const auto make = [&](const auto& features) {
            for (const auto& feature : features) {
                if (m_type.areMarksMade)
                    AddOperation(OperationOf(feature, data), feature.hostTag);
                else
                    m_ledger.Claim(feature.hostTag, Account::kNotForMachine);
            }
        };
        make(view.getMarks());
        make(view.getNumerations());
    }
}

}  // namespace plugin
