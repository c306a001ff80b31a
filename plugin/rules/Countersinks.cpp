#include "plugin/rules/JobMember.h"
#include "plugin/rules/ReachIndex.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

// The library joins a countersink and a hole of any kind at exactly one place. Here it is a round
// hole, and the place is the same within the tolerances.

namespace plugin {

namespace {

constexpr const wchar_t* kNoHoleText = L"The countersink has no plain round hole at its place";
constexpr const wchar_t* kSetAsideText = L"The hole of the countersink is set aside";
constexpr const wchar_t* kSecondText = L"The hole has another countersink already";
constexpr const wchar_t* kNarrowText = L"The countersink is narrower than its hole";
constexpr const wchar_t* kSlotText = L"The countersink is a slot, and no operation tells one";
constexpr const wchar_t* kHoleRefusedText = L"Its hole is not made";

bool CanBeCountersunk(const CHoleAddlInfo& hole) {
    return !hole.GetIsSlot() && hole.GetHoleData().kind == ZetNCHoleData::eKindPlain;
}

ReachIndex PlacesOfPlain(const ZetArray<CHoleAddlInfo>& holes) {
    ReachIndex places;
    for (long i = 0; i < holes.length(); ++i)
        if (CanBeCountersunk(holes[i]))
            places.Add(i, holes[i].GetXPos(), 0.0);
    return places;
}

/// Why the countersink is not made with the hole (null: there is none); null when it is.
const wchar_t* FaultOfSink(const CHoleAddlInfo& sink, const CHoleAddlInfo* hole) {
    if (sink.GetIsSlot())
        return kSlotText;
    if (hole == nullptr)
        return kNoHoleText;
    if (hole->GetIsCSK())
        return kSecondText;
    return sink.GetSize() < hole->GetSize() ? kNarrowText : nullptr;
}

/// What rounding may add to a distance at exactly the tolerance, mm.
constexpr double kRounding = 1e-9;

}  // namespace

/// The nearest hole that the countersink may be of; -1: none.
long JobMember::FindHoleOf(const CHoleAddlInfo& sink,
                           const ZetArray<CHoleAddlInfo>& holes,
                           const ReachIndex& index) const {
    const double reachX = std::abs(CMxGeom::GetXTol()) + kRounding;
    const double reachY = std::abs(CMxGeom::GetYTol()) + kRounding;
    long nearest = -1;
    double leastDistance = std::numeric_limits<double>::infinity();
    index.FindNear(sink.GetXPos(), reachX, [&](long position) {
        const CHoleAddlInfo& hole = holes[position];
        const double dx = std::abs(hole.GetXPos() - sink.GetXPos());
        const double dy = std::abs(hole.GetYPos() - sink.GetYPos());
        const double distance = ZetGeomVector2d{dx, dy}.length();
        if (dx <= reachX && dy <= reachY && distance < leastDistance &&
            ViewOf(hole) == ViewOf(sink)) {
            nearest = position;
            leastDistance = distance;
        }
        return false;
    });
    return nearest;
}

/// What the library has joined, before anything is told of the holes.
void JobMember::PartCountersinks() {
    for (auto* holes : {&m_holes, &m_duplicateHoles})
        for (CHoleAddlInfo& hole : *holes) {
            hole.SetIsCSK(false);
            hole.SetCSKPos(-1);
        }
}

void JobMember::JoinCountersinks() {
    if (m_cskHoles.isEmpty())
        return;
    const ReachIndex open = PlacesOfPlain(m_holes);
    const ReachIndex setAside = PlacesOfPlain(m_duplicateHoles);
    std::stable_sort(m_cskHoles.begin(), m_cskHoles.end(), [](const auto& a, const auto& b) {
        return a.GetHoleData().hostTag < b.GetHoleData().hostTag;
    });
    for (CHoleAddlInfo& sink : m_cskHoles) {
        const long index = FindHoleOf(sink, m_holes, open);
        if (const wchar_t* fault = FaultOfSink(sink, index < 0 ? nullptr : &m_holes[index])) {
            sink.SetValid(false);
            if (fault == kNoHoleText && FindHoleOf(sink, m_duplicateHoles, setAside) >= 0)
                fault = kSetAsideText;
            FileHole({.type = job::kLoneCountersink, .text = fault, .isRefusal = true}, sink);
            continue;
        }
        CHoleAddlInfo& hole = m_holes[index];
        hole.SetIsCSK(true);
        hole.SetCSKPos(0);
        m_judging->sinks.insert({PlaceOf(hole), sink});
        m_ledger.Join(sink.GetHoleData().hostTag, hole.GetHoleData().hostTag);
    }
}

JobMember::HolePlace JobMember::PlaceOf(const CHoleAddlInfo& hole) {
    return {hole.GetHoleData().hostTag,
            hole.GetViewData().GetHoleFace(),
            hole.GetXPos(),
            hole.GetYPos()};
}

/// The countersink of a hole; null: it has none.
const CHoleAddlInfo* JobMember::SinkOf(const CHoleAddlInfo& hole) const {
    const auto at = m_judging->sinks.find(PlaceOf(hole));
    return at == m_judging->sinks.end() ? nullptr : &at->second;
}

/// With a hole that is not made goes its countersink.
void JobMember::RefuseSinkOf(const CHoleAddlInfo& hole, Finding finding) {
    const CHoleAddlInfo* const sink = SinkOf(hole);
    if (sink == nullptr)
        return;
    for (CHoleAddlInfo& each : m_cskHoles)
        if (each.GetHoleData().hostTag == sink->GetHoleData().hostTag)
            each.SetValid(false);
    finding.text = kHoleRefusedText;
    finding.required = std::nullopt;
    finding.found = std::nullopt;
    FileHole(std::move(finding), *sink);
}

}  // namespace plugin
