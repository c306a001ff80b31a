#include "plugin/output/MachineRecordText.h"
#include "plugin/rules/FlangeZero.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/UprightRectangle.h"
#include "profiles/SectionWalls.h"

#include <cmath>
#include <map>
#include <string>
#include <utility>

namespace plugin {

namespace {

constexpr double kMillimetresAMetre = 1000.0;

bool IsManufactured(const CHoleAddlInfo& hole) {
    const eHoleStatus status = hole.GetHoleStatus();
    return hole.GetValid() && (status == eHoleStatusGroup || status == eHoleStatusIsPair);
}

bool IsManufactured(const CNotchAddInfo& notch) {
    const eNotchStatus status = notch.GetNotchStatus();
    return status == eNotchValid || status == eNotchCornerMatched;
}

// ---- holes --------------------------------------------------------------------------------------

MachineOperationKind KindOf(const CHoleAddlInfo& hole) {
    switch (hole.GetHoleShapeType()) {
        case eHoleShapeRectangular:
        case eHoleShapeSquare:
            return MachineOperationKind::kRectangle;
        case eHoleShapeCountersunk:
            return MachineOperationKind::kCountersunk;
        case eHoleShapeSlot:
            return MachineOperationKind::kSlot;
        default:
            return MachineOperationKind::kHole;
    }
}

int ThreadOf(const CHoleAddlInfo& hole) {
    const int kind = hole.GetHoleData().kind;
    const bool isThread =
        kind == ZetNCHoleData::eKindThreadRight || kind == ZetNCHoleData::eKindThreadLeft;
    return isThread ? kind : int{ZetNCHoleData::eKindPlain};
}

/// The angle of a slot in the frame of its face: each axis that the view turns round mirrors it.
double AngleOf(const CHoleAddlInfo& hole) {
    double angle = hole.GetSlotAngle();
    if (angle == 0.0)
        return 0.0;
    const CViewData& view = hole.GetViewData();
    for (const double factor :
         {view.GetDimXNegate(), view.GetDimYNegate(), view.GetDimFromOtherFace()})
        angle = factor < 0.0 ? -angle : angle;
    angle = std::fmod(RoundAsRecorded(angle), 180.0);
    return angle < 0.0 ? angle + 180.0 : angle;
}

void Describe(const CHoleAddlInfo& hole, MachineOperation& operation) {
    operation.kind = KindOf(hole);
    operation.face = hole.GetViewData().GetHoleFace();
    operation.x = hole.GetXPos();
    operation.y = hole.GetYPos();
    operation.diameter = hole.GetSize();
    operation.width = hole.GetSize();
    operation.length = OverallLength(hole);
    operation.angle = AngleOf(hole);
    operation.depth = hole.GetHoleData().depth;
    operation.thread = ThreadOf(hole);
    operation.code = hole.GetHoleCode();
}

// ---- notches ------------------------------------------------------------------------------------

/// A point of a view in the frame of its face, as CNotchAddInfo::CorrectData turns positions.
ZetGeomPoint2d OnFace(ZetGeomPoint2d point, const CViewData& view) {
    if (view.GetDimYNegate() < 0.0)
        point.y = -point.y;
    if (view.GetDimFromOtherFace() < 0.0)
        point.y = view.GetFaceWidth() - point.y;
    return point;
}

/// The corners, without the closing repeat.
ZetArray<ZetGeomPoint2d> CornersOf(const CNotchAddInfo& notch) {
    const CViewData view = notch.GetViewData();
    ZetArray<ZetGeomPoint2d> corners;
    for (const ZetGeomPoint2d& point : notch.GetOutline())
        corners.append(OnFace(point, view));
    if (!corners.isEmpty())
        corners.setLength(corners.length() - 1);
    return corners;
}

void Describe(const CNotchAddInfo& notch, MachineOperation& operation) {
    const bool isRectangle = IsUprightRectangle(notch);
    operation.kind = isRectangle ? MachineOperationKind::kNotch : MachineOperationKind::kOutline;
    operation.face = notch.GetViewData().GetHoleFace();
    operation.cut = notch.GetIsInternal() ? kInternalCut : kExternalCut;
    operation.x = notch.GetXPos();
    operation.y = notch.GetYPos();
    operation.length = notch.GetLength();
    operation.width = notch.GetWidth();
    if (!isRectangle)
        operation.points = CornersOf(notch);
    operation.code = notch.GetOutMsg();
}

}  // namespace

void JobMember::GenerateOutPutStringForHoles() {
    const auto most = static_cast<std::size_t>(m_holes.length() + m_notches.length());
    m_judging->machineMember.operations.reserve(most);
    m_judging->operationTags.reserve(most);
    for (const CHoleAddlInfo& hole : m_holes) {
        if (!IsManufactured(hole))
            continue;
        MachineOperation& operation = AddOperation(hole.GetHoleData().hostTag);
        Describe(hole, operation);
        if (const CHoleAddlInfo* sink = SinkOf(hole)) {
            operation.sinkDiameter = sink->GetSize();
            operation.sinkDepth = sink->GetHoleData().depth;
            operation.sinkAngle = sink->GetHoleData().slotAngle;
        }
    }
}

void JobMember::GenerateOutPutStringForNotches() {
    for (const CNotchAddInfo& notch : m_notches) {
        if (IsManufactured(notch))
            Describe(notch, AddOperation(notch.GetContour().hostTag));
    }
}

/// Of trims that are the same, one is made for all.
void JobMember::MakeTrims() {
    std::map<std::string, long> tags;  // by record
    for (const Trim& trim : m_judging->trims) {
        MachineOperation operation;
        operation.kind = MachineOperationKind::kTrim;
        operation.face = trim.face;
        operation.side = static_cast<int>(trim.side);
        operation.at = trim.at;
        operation.code = trim.code;
        const auto [first, isNew] = tags.insert({FormatOperation(operation), trim.tag});
        if (isNew)
            AddOperation(trim.tag) = std::move(operation);
        else if (trim.tag != first->second)
            m_ledger.Join(trim.tag, first->second);
    }
}

void JobMember::MakeMitres() {
    for (const ZetNCCut& cut : m_judging->mitres) {
        MachineOperation& operation = AddOperation(cut.hostTag);
        operation.kind = MachineOperationKind::kMitre;
        operation.end = cut.end;
        operation.cutFace = cut.face;
        operation.angle = cut.angle;
    }
}

MachineOperation& JobMember::AddOperation(long tag) {
    m_judging->operationTags.push_back(tag);
    return m_judging->machineMember.operations.emplace_back();
}

void JobMember::MakeOperations() {
    if (std::exchange(m_judging->hasOperations, true))
        return;
    GenerateOutPutStringForHoles();
    GenerateOutPutStringForNotches();
    MakeTrims();
    MakeMitres();
    MakeMarks();
}

void JobMember::ClaimOperations() {
    const bool mayBeSilent = !m_formatted.empty();
    for (std::size_t i = 0; i < m_judging->operationTags.size(); ++i)
        m_ledger.Claim(m_judging->operationTags[i],
                       mayBeSilent && IsSilent(i) ? Account::kNotForMachine : Account::kMade);
}

/// A section of the type's own has its flanges' widths from the web; else they begin where the
/// file's coordinates do.
std::optional<double> JobMember::FlangeEnd(double width, const job::FlangeZero& zero) const {
    if (width <= 0.0)
        return std::nullopt;
    return m_type.hasSection ? width : LowerEdgeOf(width, zero) + width;
}

std::array<std::optional<double>, eHoleFaceNone + 1> JobMember::UpperEdges() const {
    std::array<std::optional<double>, eHoleFaceNone + 1> edges{};
    const bool isPlate = IsPlate();
    edges[eHoleFaceTopFlange] = edges[eHoleFaceSlopedTopFlange] =
        FlangeEnd(isPlate ? GetProfileThick() : GetTopFlangeWidth(), m_type.topFlange);
    edges[eHoleFaceBottomFlange] = edges[eHoleFaceSlopedBottomFlange] =
        FlangeEnd(isPlate ? GetProfileThick() : GetBotFlangeWidth(), m_type.bottomFlange);
    std::optional<double>& web = edges[eHoleFaceWeb];
    if (const std::optional<FaceBox> surface = FaceOfView(1); IsRound() && surface)
        web = surface->maxY;
    else if (GetWebWidth() > 0.0)
        web = GetWebWidth();
    edges[eHoleFaceWebBack] = IsRound() ? FaceOfView(profiles::kBehind).maxY : web;
    return edges;
}

/// All but its operations.
void JobMember::MakeMachineMember() {
    m_judging->machineMember.mark = GetMark();
    m_judging->machineMember.quantity = GetQty();
    m_judging->machineMember.profile = GetProfileName();
    m_judging->machineMember.length = GetLength();
    m_judging->machineMember.group = GetGroup().id;
    m_judging->machineMember.material = GetMaterial();
    m_judging->machineMember.height = GetWebWidth();
    m_judging->machineMember.width = GetProfileWidth();
    m_judging->machineMember.thickness = GetProfileThick();
    m_judging->machineMember.weight = GetLength() / kMillimetresAMetre * m_weightPerMetre;
    m_judging->machineMember.weightPerMetre = m_weightPerMetre;
    m_judging->machineMember.upperEdges = UpperEdges();
}

void JobMember::GenerateMemData() {
    MakeMachineMember();
}

std::string JobMember::MakeRecords() const {
    return FormatMember(m_judging->machineMember);
}

ZetString JobMember::GetMemOutPutStr() {
    return ZetString::fromUtf8(MakeRecords());
}

}  // namespace plugin
