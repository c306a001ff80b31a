#include "job/CodeFormat.h"
#include "plugin/rules/FaceOutline.h"
#include "plugin/rules/FaceText.h"
#include "plugin/rules/FlangeZero.h"
#include "plugin/rules/JobMember.h"
#include "profiles/SectionWalls.h"

#include "camdata/platform/geometry/PointChain.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <set>
#include <tuple>
#include <utility>

// The library tells what an outline leaves free of its own least rectangle. What the outline leaves
// away at a whole side of its face is a trim, told here; and what the library tells is held against
// the area that the outline leaves away.

namespace plugin {

namespace {

constexpr const wchar_t* kBeyondText = L"The outline reaches beyond its face";
constexpr const wchar_t* kOpeningBeyondText = L"The opening reaches beyond its face";
constexpr const wchar_t* kOpeningInCutText =
    L"The opening lies in what an outline (of either side) or a mitre takes away";
constexpr const wchar_t* kOpeningInOpeningText = L"The opening lies in another one";
constexpr const wchar_t* kOpeningApartText = L"The opening takes the plate apart";
constexpr const wchar_t* kNoAreaText = L"The outline has no area";
constexpr const wchar_t* kOpeningNoAreaText = L"The opening has no area";
constexpr const wchar_t* kUnknownFaceText =
    L"Nobody can tell what the outline cuts: the extents of its face are not known";
constexpr const wchar_t* kSeveralText =
    L"The face has several outlines, which no operations tell together";
constexpr const wchar_t* kLostAreaFormat =
    L"The outline is not what its notches leave: it cuts %.1f mm2 off its box, they cut %.1f";
constexpr const wchar_t* kOutsideText = L"A notch of the outline lies outside of the outline's box";
constexpr const wchar_t* kContourFormat = L"%s: %s, from (X:%.1f, Y:%.1f) to (X:%.1f, Y:%.1f)";
constexpr const wchar_t* kTrimFormat =
    L"No trim covers it: the %s is cut off at its %s, to %s %.1f";

/// What lies nearer to a side of the box counts as lying on it, in the library too, mm.
constexpr double kTouch = 0.05 + 1e-6;

constexpr double kEndless = std::numeric_limits<double>::infinity();
constexpr FaceBox kUnbounded = {-kEndless, kEndless, -kEndless, kEndless};

/// What is nowhere wider has no area, mm.
constexpr double kNarrow = 0.01;

/// By job::TrimSide.
constexpr std::array kSideWords = {L"start", L"end", L"lower edge", L"upper edge"};

bool IsAcross(job::TrimSide side) {
    return side == job::TrimSide::kLower || side == job::TrimSide::kUpper;
}

std::vector<ZetGeomPoint2d> CornersOf(const CNotchAddInfo& notch) {
    std::vector<ZetGeomPoint2d> corners(notch.GetOutline().begin(), notch.GetOutline().end());
    if (!corners.empty())
        corners.pop_back();
    return corners;
}

bool HasNoArea(const std::vector<ZetGeomPoint2d>& corners) {
    return 2.0 * AreaOf(corners) <= kNarrow * camdata::detail::PerimeterOf(corners);
}

bool IsWithin(const FaceBox& inner, const FaceBox& outer) {
    return inner.minX >= outer.minX - kTouch && inner.maxX <= outer.maxX + kTouch &&
           inner.minY >= outer.minY - kTouch && inner.maxY <= outer.maxY + kTouch;
}

/// True when the corners lie on the outline.
bool IsOn(const FaceOutline& outline, const std::vector<ZetGeomPoint2d>& corners) {
    return std::all_of(corners.begin(), corners.end(), [&](const ZetGeomPoint2d& corner) {
        return outline.DistanceFrom(corner, 2.0 * kTouch) <= kTouch;
    });
}

bool IsPlace(const ZetGeomPoint2d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// True when all outlines of a face are one and the same.
bool IsOneOutline(const ZetNCView& view) {
    const auto corners = plugin::CornersOf(view.getExternalContours().first());
    const FaceOutline outline(corners);
    for (const ZetNCContour& each : view.getExternalContours()) {
        const auto others = plugin::CornersOf(each);
        if (!IsOn(outline, others) || !IsOn(FaceOutline(others), corners) ||
            std::abs(AreaOf(others) - AreaOf(corners)) > kAreaTolerance)
            return false;
    }
    return true;
}

}  // namespace

/// What the notches of one outline come to.
struct JobMember::NotchSum {
    double area = 0.0;
    FaceBox box;
    double lowestTop = kEndless;  ///< of a notch that ends nowhere higher
    bool hasNotches = false;

    void Add(const std::vector<ZetGeomPoint2d>& corners) {
        const FaceBox added = BoxOf(corners);
        area += AreaOf(corners);
        lowestTop = std::min(lowestTop, added.maxY);
        box = hasNotches ? FaceBox{std::min(box.minX, added.minX),
                                   std::max(box.maxX, added.maxX),
                                   std::min(box.minY, added.minY),
                                   std::max(box.maxY, added.maxY)}
                         : added;
        hasNotches = true;
    }
};

JobMember::Section JobMember::SectionOf(const ZetString& profileCode) {
    if (profileCode == L"B")
        return Section::kPlate;
    return profiles::IsRound(profileCode.view()) ? Section::kRound : Section::kOther;
}

/// True on the narrow sides of a plate, which its outline does not show.
bool JobMember::IsEdgeOfPlate(int viewPosition) const {
    return IsPlate() && (viewPosition == profiles::kTop || viewPosition == profiles::kBottom);
}

/// The extents of a view's face.
FaceBox JobMember::FaceOfView(int viewPosition) const {
    if (viewPosition >= kFirstPlanePosition)
        return FaceOfPlane(viewPosition);
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    const bool isTop = viewPosition == profiles::kTop;
    const bool isFlange = isTop || viewPosition == profiles::kBottom;
    const double depth = IsPlate() ? header.thickness : header.width;
    double width = isFlange && !IsRound() ? depth : header.height;
    if (IsUnrolled(viewPosition))
        width *= std::numbers::pi;
    FaceBox face = kUnbounded;
    if (header.length > 0.0)
        std::tie(face.minX, face.maxX) = std::pair(0.0, header.length);
    if (IsEdgeOfPlate(viewPosition) && m_judging->plate)
        std::tie(face.minX, face.maxX) =
            std::pair(m_judging->plate->GetBox().minX, m_judging->plate->GetBox().maxX);
    if (width <= 0.0)
        return face;
    face.minY = isFlange ? LowerEdgeOf(width, isTop ? m_type.topFlange : m_type.bottomFlange) : 0.0;
    face.maxY = face.minY + width;
    return face;
}

/// True when nobody can tell where an outline ends short of its face, or beside it. On a plane only
/// one that spans it shows that.
bool JobMember::IsFaceUnknown(const FaceBox& outline, int viewPosition) const {
    if (!std::isfinite(FaceOfView(viewPosition).Area()))
        return true;
    const double width = ViewDataOf(viewPosition).GetFaceWidth();
    return viewPosition >= kFirstPlanePosition &&
           std::abs(outline.maxY - outline.minY - width) > std::abs(CMxGeom::GetYTol());
}

/// Along the member its length. Across, nobody knows where in the face the plane has its zero, but
/// neither that nor anything on the plane is farther from the face than that is wide. An askew
/// plane has bounds in neither direction.
FaceBox JobMember::FaceOfPlane(int viewPosition) const {
    FaceBox face = kUnbounded;
    if (AskewPlaneAt(viewPosition) != nullptr)
        return face;
    std::tie(face.minX, face.maxX) = std::pair(0.0, GetLength());
    if (const double width = ViewDataOf(viewPosition).GetFaceWidth(); width > 0.0)
        std::tie(face.minY, face.maxY) = std::pair(-width, 2.0 * width);
    return face;
}

/// Before anything is set aside, here and below: a notch that tells nothing right must not stand
/// for others.
void JobMember::CheckOutlines() {
    PlateOutline();  // for its narrow sides
    std::map<long, NotchSum> sums;
    for (const auto* notches : {&m_notches, &m_duplicateNotches})
        for (const CNotchAddInfo& notch : *notches)
            if (!notch.GetIsInternal() && notch.GetNotchStatus() != eNotchNone)
                sums[notch.GetContour().hostTag].Add(CornersOf(notch));
    std::set<long> refused;
    for (const ZetNCView& view : m_structure.getViews())
        for (const ZetNCContour& outline : view.getExternalContours())
            if (!TakeOutline(outline, view, sums[outline.hostTag]))
                refused.insert(outline.hostTag);
    DropNotches(m_notches, refused);
    DropNotches(m_duplicateNotches, refused);
    NoteOutlinesThatDiffer();
}

/// When the outlines and mitres of all views are known: an opening may lie in what they take away.
/// Those that do not may hold others.
void JobMember::CheckOpenings() {
    std::set<long> refused;
    const auto refuseUnless = [&](bool (JobMember::*check)(const ZetNCContour&, int)) {
        for (const ZetNCView& view : m_structure.getViews())
            for (const ZetNCContour& opening : view.getInternalContours())
                if (refused.count(opening.hostTag) == 0 &&
                    !(this->*check)(opening, view.getViewPos()))
                    refused.insert(opening.hostTag);
    };
    refuseUnless(&JobMember::CheckOpening);
    refuseUnless(&JobMember::CheckOpeningAmongOthers);
    DropNotches(m_notches, refused);
    DropNotches(m_duplicateNotches, refused);
}

void JobMember::RefuseContour(job::ValidationType type,
                              const ZetString& fault,
                              const ZetNCContour& contour,
                              int viewPosition) {
    const FaceBox box = BoxOf(CornersOf(contour));
    const bool isBeyond = fault == kBeyondText || fault == kOpeningBeyondText;
    const FaceBox face =
        fault == kBeyondText ? FaceOfView(viewPosition) : SteelOfView(viewPosition);
    const Excess excess = isBeyond ? ExcessOf(box, face) : Excess();
    FileFinding({.type = type,
                 .text = ZetString::format(kContourFormat,
                                           fault,
                                           FaceText(ViewDataOf(viewPosition).GetHoleFace()),
                                           box.minX,
                                           box.minY,
                                           box.maxX,
                                           box.maxY),
                 .required = excess.required,
                 .found = excess.found,
                 .feature = FeatureOf(contour.hostTag),
                 .isRefusal = true});
}

/// False when operations cannot tell it.
bool JobMember::TakeOutline(const ZetNCContour& outline,
                            const ZetNCView& view,
                            const NotchSum& sum) {
    std::vector<ZetGeomPoint2d> corners = CornersOf(outline);
    const ZetString fault = FaultOf(corners, outline.hostTag, view, sum);
    if (!fault.isEmpty()) {
        RefuseContour(job::kUnclearCut, fault, outline, view.getViewPos());
        return false;
    }
    const FaceBox box = BoxOf(corners);
    m_judging->outlines.insert_or_assign(view.getViewPos(), FaceOutline(std::move(corners)));
    // Without either it is made with the member as it is.
    if (!FindTrims(box, outline.hostTag, view.getViewPos()) && !sum.hasNotches)
        m_ledger.Claim(outline.hostTag, Account::kMade);
    return true;
}

/// False when it is none of the face.
bool JobMember::CheckOpening(const ZetNCContour& opening, int viewPosition) {
    const std::vector<ZetGeomPoint2d> corners = CornersOf(opening);
    // Without a tag nobody knows which record is whose.
    if (opening.hostTag == 0)
        return true;
    const auto refuse = [&](job::ValidationType type, const wchar_t* fault) {
        RefuseContour(type, fault, opening, viewPosition);
        return false;
    };
    if (HasNoArea(corners))
        return refuse(job::kUnclearCut, kOpeningNoAreaText);
    if (IsBeyond(corners, viewPosition, SteelOfView(viewPosition)))
        return refuse(job::kHoleOutside, kOpeningBeyondText);
    if (IsCutAway(corners, viewPosition))
        return refuse(job::kHoleOutside, kOpeningInCutText);
    const FaceBox box = BoxOf(corners);
    if (TakesPlateApart(box, viewPosition))
        return refuse(job::kUnclearCut, kOpeningApartText);
    NoteUnclearPlace(opening.hostTag, FaceOfView(viewPosition), box.minX, box.maxX);
    m_judging->openings[viewPosition].Add(corners);
    return true;
}

/// True when an opening goes from one side of a plate to the other.
bool JobMember::TakesPlateApart(const FaceBox& opening, int viewPosition) {
    if (!IsPlate() || viewPosition >= kFirstPlanePosition || IsEdgeOfPlate(viewPosition))
        return false;
    const FaceBox plate = FaceOfHoles(viewPosition).box;
    const double x = std::abs(CMxGeom::GetXTol());
    const double y = std::abs(CMxGeom::GetYTol());
    return (opening.minX <= plate.minX + x && opening.maxX >= plate.maxX - x) ||
           (opening.minY <= plate.minY + y && opening.maxY >= plate.maxY - y);
}

/// False when another one has cut out all of it.
bool JobMember::CheckOpeningAmongOthers(const ZetNCContour& opening, int viewPosition) {
    if (opening.hostTag == 0 || !IsInOpening(CornersOf(opening), viewPosition))
        return true;
    RefuseContour(job::kHoleOutside, kOpeningInOpeningText, opening, viewPosition);
    return false;
}

/// Beyond the box of the face, or a plate's outline, or the member.
bool JobMember::IsBeyond(const std::vector<ZetGeomPoint2d>& corners,
                         int viewPosition,
                         const FaceBox& face) {
    const double x = std::abs(CMxGeom::GetXTol());
    const double y = std::abs(CMxGeom::GetYTol());
    if (const FaceOutline* const plate = PlateOutline();
        plate != nullptr && viewPosition < kFirstPlanePosition && !IsEdgeOfPlate(viewPosition))
        return !plate->Holds(corners, x);
    if (std::any_of(corners.begin(), corners.end(), [&](const ZetGeomPoint2d& corner) {
            return IsOutsideSection(corner, viewPosition);
        }))
        return true;
    if (const ZetGeomPlane* const plane = AskewPlaneAt(viewPosition))
        return ReachesBeyond(AlongMember(*plane, corners, 0.0), WholeMember(), {x, y});
    return ReachesBeyond(BoxOf(corners), face, {x, y});
}

/// Why operations cannot tell an outline; "" when they can.
ZetString JobMember::FaultOf(const std::vector<ZetGeomPoint2d>& corners,
                             long tag,
                             const ZetNCView& view,
                             const NotchSum& sum) {
    const FaceBox box = BoxOf(corners);
    if (HasNoArea(corners))
        return kNoAreaText;
    // A plate is what its outline says, but not more than its header does.
    const bool isPlate = IsPlate() && !IsEdgeOfPlate(view.getViewPos());
    // That of a flange with a zero line may be as wide as the section, but cuts nothing beside it.
    const bool cutsNothing = sum.hasNotches && sum.lowestTop < SteelOfView(view.getViewPos()).minY;
    if (!isPlate &&
        (cutsNothing || IsBeyond(corners, view.getViewPos(), FaceOfView(view.getViewPos()))))
        return kBeyondText;
    if (!isPlate && IsFaceUnknown(box, view.getViewPos()))
        return kUnknownFaceText;
    const bool isAlone = view.getExternalContours().length() == 1;
    if (isAlone ? !std::all_of(corners.begin(), corners.end(), IsPlace) : !IsOneOutline(view))
        return kSeveralText;
    // Without a tag nobody knows which notches are whose.
    if (tag == 0)
        return {};
    if (sum.hasNotches && !IsWithin(sum.box, box))
        return kOutsideText;
    const double cut = box.Area() - AreaOf(corners);
    if (std::abs(cut - sum.area) > kAreaTolerance)
        return ZetString::format(kLostAreaFormat, cut, sum.area);
    return {};
}

/// Makes trims of what an outline leaves away at whole sides of its face. False when there is none.
bool JobMember::FindTrims(const FaceBox& box, long tag, int viewPosition) {
    if (IsPlate() && !IsEdgeOfPlate(viewPosition))
        return false;
    const bool isOnPlane = viewPosition >= kFirstPlanePosition;
    FaceBox face = FaceOfView(viewPosition);
    face.minY = std::max(face.minY, SteelOfView(viewPosition).minY);
    const std::array gaps = {
        box.minX - face.minX, face.maxX - box.maxX, box.minY - face.minY, face.maxY - box.maxY};
    const std::array edges = {box.minX, box.maxX, box.minY, box.maxY};
    const std::array whole = {face.minX, face.maxX, face.minY, face.maxY};
    bool isTrimmed = false;
    for (std::size_t i = 0; i < gaps.size(); ++i) {
        const auto side = static_cast<job::TrimSide>(i);
        const double tolerance = std::abs(IsAcross(side) ? CMxGeom::GetYTol() : CMxGeom::GetXTol());
        if (gaps[i] <= tolerance || (isOnPlane && IsAcross(side)))
            continue;
        isTrimmed = true;
        TakeTrim({ViewDataOf(viewPosition).GetHoleFace(), side, edges[i], {}, tag}, whole[i]);
    }
    return isTrimmed;
}

eHoleFace JobMember::FaceAtView(int viewPosition) {
    static constexpr std::array kFaces = {
        eHoleFaceTopFlange, eHoleFaceWeb, eHoleFaceBottomFlange, eHoleFaceWebBack, eHoleFaceWeb};
    const auto index = static_cast<std::size_t>(viewPosition);
    return index < kFaces.size() ? kFaces[index] : eHoleFaceNone;
}

/// The first trim of the job that fits counts. `whole` is the edge of the whole face.
void JobMember::TakeTrim(Trim trim, double whole) {
    const std::vector<job::TrimRule>& rules = GetJob().trims;
    const auto allows = [](const auto& list, auto value) {
        return list.empty() || std::find(list.begin(), list.end(), value) != list.end();
    };
    const auto rule = std::find_if(rules.begin(), rules.end(), [&](const job::TrimRule& each) {
        return allows(each.faces, trim.face) && allows(each.sides, trim.side);
    });
    if (rule != rules.end()) {
        const double at = trim.at;
        trim.code = job::FillCode(rule->code,
                                  {.face = job::NameOf(trim.face),
                                   .x = IsAcross(trim.side) ? 0.0 : at,
                                   .y = IsAcross(trim.side) ? at : 0.0});
        m_judging->trims.push_back(std::move(trim));
        return;
    }
    FileFinding(
        {.type = job::kUncoveredTrim,
         .text = ZetString::format(kTrimFormat,
                                   FaceText(trim.face),
                                   ZetString(kSideWords[static_cast<std::size_t>(trim.side)]),
                                   ZetString(IsAcross(trim.side) ? L"Y" : L"X"),
                                   trim.at),
         .required = whole,
         .found = trim.at,
         .feature = FeatureOf(trim.tag),
         .isRefusal = true});
}

void JobMember::DropNotches(ZetArray<CNotchAddInfo>& notches, const std::set<long>& tags) {
    if (tags.empty())
        return;
    ZetArray<CNotchAddInfo> rest;
    for (CNotchAddInfo& notch : notches)
        if (tags.count(notch.GetContour().hostTag) == 0 ||
            (notch.GetIsInternal() && notch.GetContour().hostTag == 0))
            rest.append(std::move(notch));
    notches = std::move(rest);
}

}  // namespace plugin
