#include "plugin/rules/JobMember.h"

#include <algorithm>

namespace plugin {

namespace {

constexpr const wchar_t* kMarksFormat =
    L"not for this machine: %d %s; \"marks = true\" of the member type makes %s";
constexpr const wchar_t* kOutsideText = L"it lies outside of its face or of the member";
constexpr const wchar_t* kCutAwayText =
    L"it lies in what an outline, an opening or a mitre takes away";

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

/// NC files of the group have them as they were read.
bool JobMember::HasNcFile() const {
    const std::vector<std::size_t>& files = GetGroup().files;
    return std::any_of(files.begin(), files.end(), [&](std::size_t file) {
        return GetJob().files[file].nc.has_value();
    });
}

/// As far as it is judged.
bool JobMember::IsToBeMade() const {
    return m_errors.isEmpty() && m_secondErrors.isEmpty() && m_outcome.hasPieces;
}

/// Where neither the member type asks for them nor an NC file has them, one note tells them all; of
/// a member that is not made nobody asks for anything.
void JobMember::NoteMarks() {
    const bool areInNcFile = HasNcFile();
    long first = 0;
    long count = 0;
    const auto claim = [&](const auto& features) {
        for (const auto& feature : features) {
            m_ledger.Claim(feature.hostTag, areInNcFile ? Account::kMade : Account::kNotForMachine);
            first = count == 0 ? feature.hostTag : std::min(first, feature.hostTag);
            ++count;
        }
    };
    for (const ZetNCView& view : m_structure.getViews()) {
        if (m_type.areMarksMade)
            break;
        claim(view.getMarks());
        claim(view.getNumerations());
    }
    if (m_type.areMarksMade || areInNcFile)
        return NoteMarksOutside();
    if (const std::optional<Feature> feature = FeatureOf(first);
        feature && count > 0 && IsToBeMade())
        m_notes.push_back({*feature,
                           ZetString::format(kMarksFormat,
                                             count,
                                             count == 1 ? ZetString(L"mark or text")
                                                        : ZetString(L"marks and texts"),
                                             count == 1 ? ZetString(L"it") : ZetString(L"them"))});
}

/// Why a mark is not on the member; null when it is.
const wchar_t* JobMember::FaultOfMark(const std::vector<ZetGeomPoint2d>& points, int viewPosition) {
    if (IsBeyond(points, viewPosition, SteelOfView(viewPosition)))
        return kOutsideText;
    const bool isCutAway =
        std::any_of(points.begin(), points.end(), [&](const ZetGeomPoint2d& point) {
            return IsCutAway(point, viewPosition);
        });
    return isCutAway ? kCutAwayText : nullptr;
}

void JobMember::NoteMarksOutside() {
    for (const ZetNCView& view : m_structure.getViews()) {
        const auto check = [&](const std::vector<ZetGeomPoint2d>& points, long tag) {
            const wchar_t* const fault = FaultOfMark(points, view.getViewPos());
            if (const std::optional<Feature> feature = FeatureOf(tag); feature && fault != nullptr)
                m_notes.push_back({*feature, fault});
        };
        for (const ZetNCMark& mark : view.getMarks())
            check({mark.points.begin(), mark.points.end()}, mark.hostTag);
        for (const ZetNCNumeration& text : view.getNumerations()) {
            const ZetGeomPoint2d place = {text.x, text.y};
            check({place}, text.hostTag);
        }
    }
}

/// Marks and texts: records where the member type asks for them.
void JobMember::MakeMarks() {
    if (!m_type.areMarksMade)
        return;
    for (const ZetNCView& view : m_structure.getViews()) {
        if (view.getMarks().isEmpty() && view.getNumerations().isEmpty())
            continue;
        const CViewData data = ViewDataOf(view.getViewPos());
        const auto make = [&](const auto& features) {
            for (const auto& feature : features)
                AddOperation(feature.hostTag) = OperationOf(feature, data);
        };
        make(view.getMarks());
        make(view.getNumerations());
    }
}

}  // namespace plugin
