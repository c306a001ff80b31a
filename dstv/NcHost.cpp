#include "dstv/NcHost.h"

#include "dstv/NcGeometry.h"
#include "dstv/NcPlanes.h"

#include "camdata/platform/host/IStructureObject.h"

#include <atomic>
#include <map>
#include <optional>
#include <utility>

namespace dstv {
namespace {

/// View position of the first inclined plane.
constexpr int kFirstPlanePosition = 5;
/// A list of so many is made at once.
constexpr long kUsualHoles = 24;

/// The model object of one file: what its header says of the part.
class FileModelObject final : public IEqualPartObject, public IStructureObject {
  public:
    FileModelObject(const NcHeader& header, bool isMainPart)
        : m_isMainPart(isMainPart),
          m_mark(header.mark),
          m_profileName(header.profileName),
          m_material(header.steelQuality),
          m_remark(header.infoTexts[0]) {}

    HostResult queryInterface(const HostInterfaceId& id, IHostObject** object) override {
        *object = nullptr;
        if (id == IEqualPartObject::kId)
            *object = static_cast<IEqualPartObject*>(this);
        else if (id == IStructureObject::kId)
            *object = static_cast<IStructureObject*>(this);
        else
            return kHostNoInterface;
        addRef();
        return kHostOk;
    }
    unsigned long addRef() override { return ++m_references; }
    unsigned long release() override {
        const unsigned long left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

    HostResult getMainPart(HostBool* isMainPart) override {
        *isMainPart = m_isMainPart ? IEqualPartObject::kHostTrue : 0;
        return kHostOk;
    }
    HostResult getPartNumber(ZetString* text) override { return Give(m_mark, text); }
    HostResult getAssemblyNumber(ZetString* text) override { return Give({}, text); }
    HostResult getName(ZetString* text) override { return Give(m_profileName, text); }
    HostResult getMaterial(ZetString* text) override { return Give(m_material, text); }
    HostResult getFinish(ZetString* text) override { return Give({}, text); }
    HostResult getRemark(ZetString* text) override { return Give(m_remark, text); }
    HostResult getProfileName(ZetString* name) override { return Give(m_profileName, name); }

  private:
    static HostResult Give(const ZetString& value, ZetString* text) {
        *text = value;
        return kHostOk;
    }

    std::atomic<unsigned long> m_references = 1;
    bool m_isMainPart;
    ZetString m_mark;
    ZetString m_profileName;
    ZetString m_material;
    ZetString m_remark;
};

HostPtr<IEqualPartObject> MakeModelObject(const NcHeader& header, bool isMainPart) {
    return HostPtr<IEqualPartObject>::adopt(new FileModelObject(header, isMainPart));
}

/// Sorts everything on a part into its views.
class StructureBuilder {
  public:
    explicit StructureBuilder(const NcPart& part) : m_part(part), m_positions(part.planes.size()) {}

    void Build();
    ZetNCStructure TakeStructure();
    /// Valid after TakeStructure.
    std::vector<NcHoleTarget> TakeHoleTargets() { return std::move(m_targets); }

  private:
    struct Draft {
        ZetGeomPlane plane;
        ZetArray<ZetNCHoleData> holes;
        ZetArray<ZetNCContour> externalContours;
        ZetArray<ZetNCContour> internalContours;
        ZetArray<ZetNCMark> marks;
        ZetArray<ZetNCNumeration> numerations;
        long index = 0;  ///< of the view; valid after TakeStructure
    };
    /// Where a feature goes, and how its coordinates get there.
    struct Target {
        int position;
        Draft& draft;
        PlaneMap map;
    };

    template <typename Features>
    void MarkUsed(const Features& features, std::vector<char>& isUsed) const;
    void NumberPlanes();
    int PositionOf(const NcPlace& place) const;
    const Target& TargetOf(const NcPlace& place);
    Target NewTargetOf(const NcPlace& place);
    void AddHole(const NcHole& hole);
    long AddHoleTo(const NcHole& hole, const Target& target);
    void AddContour(const NcContour& contour);
    void AddMark(const NcMark& mark);
    void AddNumeration(const NcNumeration& numeration);

    const NcPart& m_part;
    std::vector<int> m_positions;  ///< of each plane
    std::map<int, Draft> m_drafts;
    NcPlace m_place;                      ///< of the feature before
    std::optional<Target> m_target;       ///< nothing: there was none
    std::vector<NcHoleTarget> m_targets;  ///< views by position until TakeStructure
};

ZetNCContour ContourOf(const Outline& outline, int type, long line, const PlaneMap& map) {
    ZetNCContour contour;
    contour.type = type;
    contour.hostTag = line;
    contour.xValues.reserve(static_cast<long>(outline.size()));
    contour.yValues.reserve(static_cast<long>(outline.size()));
    for (const ZetGeomPoint2d& point : outline) {
        const ZetGeomPoint2d mapped = map.Point(point);
        contour.xValues.append(mapped.x);
        contour.yValues.append(mapped.y);
    }
    contour.bulges.setLength(contour.xValues.length());
    return contour;
}

ZetNCMark MarkOf(const Outline& points, int kind, long line, const PlaneMap& map) {
    ZetNCMark mark;
    mark.kind = kind;
    mark.hostTag = line;
    for (const ZetGeomPoint2d& point : points)
        mark.points.append(map.Point(point));
    return mark;
}

/// A mark's points: one, or two when its line has a slot, the start circle's centre first.
Outline MarkedLine(const NcHole& hole) {
    Outline points = {
        {hole.x, hole.q}
    };
    const ZetGeomVector2d u = DirectionAt(hole.slotAngle);
    if (hole.slotWidth > 0.0 || hole.slotHeight > 0.0)
        points.push_back({hole.x + hole.slotWidth * u.x - hole.slotHeight * u.y,
                          hole.q + hole.slotWidth * u.y + hole.slotHeight * u.x});
    return points;
}

int HoleDataKind(NcHoleKind kind) {
    switch (kind) {
        case NcHoleKind::kThreadRight:
            return ZetNCHoleData::eKindThreadRight;
        case NcHoleKind::kThreadLeft:
            return ZetNCHoleData::eKindThreadLeft;
        case NcHoleKind::kCountersunk:
            return ZetNCHoleData::eKindCountersunk;
        default:
            return ZetNCHoleData::eKindPlain;
    }
}

ZetNCHoleData HoleDataOf(const NcHole& hole, const PlaneMap& map) {
    const ZetGeomPoint2d point = map.Point({hole.x, hole.q});
    ZetNCHoleData data;
    data.x = point.x;
    data.y = point.y;
    data.kind = HoleDataKind(hole.kind);
    data.size = hole.diameter;
    data.depth = hole.depth;
    data.hostTag = hole.line;
    // Of a hole without a slot nobody else reads it; of a countersink the member does.
    data.slotAngle = hole.sinkAngle;
    if (hole.form == NcHoleForm::kSlot) {
        const bool isAcross = hole.slotHeight > 0.0;
        data.slot = 1;
        data.slotLength = isAcross ? hole.slotHeight : hole.slotWidth;
        data.slotAngle = map.Angle(hole.slotAngle + (isAcross ? 90.0 : 0.0));
    }
    return data;
}

ZetArray<ZetNCCut> CutsOf(const NcPart& part) {
    ZetArray<ZetNCCut> cuts;
    for (const NcCut& cut : part.cuts) {
        if (cut.isNoted)
            continue;
        cuts.append({cut.isAtEnd ? ZetNCCut::eEndEnd : ZetNCCut::eEndStart,
                     cut.isOnFlange ? ZetNCCut::eFaceFlange : ZetNCCut::eFaceWeb,
                     cut.angle,
                     cut.x,
                     cut.line});
    }
    return cuts;
}

void StructureBuilder::Build() {
    NumberPlanes();
    m_targets.reserve(m_part.holes.size());
    for (const NcHole& hole : m_part.holes)
        AddHole(hole);
    for (const NcContour& contour : m_part.contours)
        AddContour(contour);
    for (const NcMark& mark : m_part.marks)
        AddMark(mark);
    for (const NcNumeration& numeration : m_part.numerations)
        if (!numeration.IsEmpty())
            AddNumeration(numeration);
}

template <typename Features>
void StructureBuilder::MarkUsed(const Features& features, std::vector<char>& isUsed) const {
    for (const auto& feature : features)
        if (feature.place.plane >= 0)
            isUsed[static_cast<std::size_t>(feature.place.plane)] = 1;
}

void StructureBuilder::NumberPlanes() {
    std::vector<char> isUsed(m_part.planes.size());
    MarkUsed(m_part.holes, isUsed);
    MarkUsed(m_part.contours, isUsed);
    MarkUsed(m_part.marks, isUsed);
    MarkUsed(m_part.numerations, isUsed);
    int next = kFirstPlanePosition;
    for (std::size_t i = 0; i < m_part.planes.size(); ++i) {
        const NcPlane& plane = m_part.planes[i];
        m_positions[i] = static_cast<int>(plane.face);
        if (plane.face != NcFace::kPlane || isUsed[i] == 0)
            continue;
        // The same plane defined again is still one view.
        const ZetGeomPlane view = InclinedViewPlane(plane.plane);
        std::size_t same = 0;
        while (!(InclinedViewPlane(m_part.planes[same].plane) == view && isUsed[same] != 0))
            ++same;
        m_positions[i] = same < i ? m_positions[same] : next++;
    }
}

int StructureBuilder::PositionOf(const NcPlace& place) const {
    return place.plane < 0 ? static_cast<int>(place.face)
                           : m_positions[static_cast<std::size_t>(place.plane)];
}

/// Features of one place come together mostly.
const StructureBuilder::Target& StructureBuilder::TargetOf(const NcPlace& place) {
    if (!m_target || m_place != place) {
        m_place = place;
        m_target.emplace(NewTargetOf(place));
    }
    return *m_target;
}

StructureBuilder::Target StructureBuilder::NewTargetOf(const NcPlace& place) {
    const int position = PositionOf(place);
    const auto [at, isNew] = m_drafts.try_emplace(position);
    Draft& draft = at->second;
    if (!isNew && place.plane < 0)
        return {position, draft, PlaneMap()};
    const bool isFace = position < kFirstPlanePosition;
    const ZetGeomPlane own = place.plane < 0
                                 ? ZetGeomPlane()
                                 : m_part.planes[static_cast<std::size_t>(place.plane)].plane;
    const ZetGeomPlane view =
        isFace ? FacePlane(static_cast<NcFace>(position), m_part.header) : InclinedViewPlane(own);
    draft.plane = InMemberFrame(view, m_part.header.profileCode);
    return {position, draft, place.plane >= 0 ? PlaneMap(own, view) : PlaneMap()};
}

void StructureBuilder::AddHole(const NcHole& hole) {
    const Target& target = TargetOf(hole.place);
    m_targets.push_back({target.position, AddHoleTo(hole, target)});
}

long StructureBuilder::AddHoleTo(const NcHole& hole, const Target& target) {
    Draft& draft = target.draft;
    if (hole.form == NcHoleForm::kMark) {
        draft.marks.append(MarkOf(MarkedLine(hole), ZetNCMark::eKindPunch, hole.line, target.map));
        return draft.marks.length() - 1;
    }
    if (hole.form == NcHoleForm::kRectangle) {
        draft.internalContours.append(
            ContourOf(hole.outline, ZetNCContour::eTypeInternal, hole.line, target.map));
        return draft.internalContours.length() - 1;
    }
    if (draft.holes.isEmpty())
        draft.holes.reserve(kUsualHoles);
    draft.holes.append(HoleDataOf(hole, target.map));
    return draft.holes.length() - 1;
}

void StructureBuilder::AddContour(const NcContour& contour) {
    const Target& target = TargetOf(contour.place);
    ZetArray<ZetNCContour>& contours =
        contour.isInternal ? target.draft.internalContours : target.draft.externalContours;
    contours.append(
        ContourOf(contour.outline,
                  contour.isInternal ? ZetNCContour::eTypeInternal : ZetNCContour::eTypeExternal,
                  contour.line,
                  target.map));
}

void StructureBuilder::AddMark(const NcMark& mark) {
    const Target& target = TargetOf(mark.place);
    const int kind =
        mark.kind == NcMarkKind::kPowder ? ZetNCMark::eKindPowder : ZetNCMark::eKindPunch;
    target.draft.marks.append(MarkOf(mark.outline, kind, mark.line, target.map));
}

void StructureBuilder::AddNumeration(const NcNumeration& numeration) {
    const Target& target = TargetOf(numeration.place);
    const ZetGeomPoint2d point = target.map.Point({numeration.x, numeration.q});
    target.draft.numerations.append({point.x,
                                     point.y,
                                     target.map.Angle(numeration.angle),
                                     numeration.textHeight,
                                     numeration.text,
                                     numeration.line});
}

ZetNCStructure StructureBuilder::TakeStructure() {
    ZetArray<ZetNCView> views;
    for (auto& [position, draft] : m_drafts) {
        ZetNCView view;
        view.setViewPos(position);
        view.setPlane(draft.plane);
        view.setHoles(std::move(draft.holes));
        view.setExternalContours(std::move(draft.externalContours));
        view.setInternalContours(std::move(draft.internalContours));
        view.setMarks(std::move(draft.marks));
        view.setNumerations(std::move(draft.numerations));
        draft.index = views.length();
        views.append(std::move(view));
    }
    for (NcHoleTarget& target : m_targets)
        target.view = m_drafts.at(static_cast<int>(target.view)).index;
    ZetNCStructure structure;
    structure.setViews(std::move(views));
    structure.setCuts(CutsOf(m_part));
    return structure;
}

}  // namespace

NcFileEntity::NcFileEntity(NcPart part)
    : m_part(std::move(part)), m_modelObject(MakeModelObject(m_part.header, false)) {
    StructureBuilder builder(m_part);
    builder.Build();
    m_structure = builder.TakeStructure();
    m_holeTargets = builder.TakeHoleTargets();
}

void NcFileEntity::releaseFeatures() {
    NcPart rest;
    rest.file = std::move(m_part.file);
    rest.header = std::move(m_part.header);
    m_part = std::move(rest);
    m_structure = {};
    m_holeTargets = std::vector<NcHoleTarget>();
}

void NcFileEntity::setAssembly(ZetArray<ZetNCEntity*> attachedEntities) {
    m_attachedEntities = std::move(attachedEntities);
    m_modelObject = MakeModelObject(m_part.header, true);
}

ZetNCEntity::NCTypes NcFileEntity::getType() const {
    return m_part.header.profileCode == L"B" ? eNCTypePlate : eNCTypeBeam;
}

IHostObject* NcFileEntity::getModelObject() {
    m_modelObject->addRef();
    return m_modelObject.get();
}

ZetNCHeaderData NcFileEntity::getHeader(long) const {
    const NcHeader& header = m_part.header;
    const bool isPlate = getType() == eNCTypePlate;
    ZetNCHeaderData data;
    data.drawingNumber = header.drawing;
    data.mark = header.mark;
    data.quantity = header.quantity;
    data.profileName = header.profileName;
    data.profileCode = header.profileCode;
    data.length = header.length;
    data.sawLength = header.sawLength;
    data.height = header.profileHeight;
    data.width = isPlate ? header.profileHeight : header.flangeWidth;
    data.thickness = header.webThickness;
    data.material = header.steelQuality;
    data.weightPerMetre = header.weight;
    data.surfacePerMetre = header.paintingSurface;
    return data;
}

ZetNCStructure NcFileEntity::getNCStructure(long) const {
    return m_structure;
}

}  // namespace dstv
