#include "plugin/rules/FaceOutline.h"
#include "plugin/rules/FaceText.h"
#include "plugin/rules/HoleCover.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/ReachIndex.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <tuple>

// The library sets holes aside and does not say for which, each once for every slot that holds it;
// of slots that lie in each other it leaves none. Here each gets the hole that it is set aside for,
// one that is not set aside itself, and comes back when there is none.

namespace plugin {

namespace {

constexpr const wchar_t* kMarkedText = L"set aside, the NC data mark it so: ";
constexpr const wchar_t* kInsideSlotFormat = L"Left out, it lies inside a slot: %s; the slot: %s";
constexpr const wchar_t* kDuplicateFormat =
    L"Left out, it repeats or touches another hole: %s; the other: %s";

/// A hole inside several slots was set aside once for each; all but the first have this status.
bool IsRepeated(const CHoleAddlInfo& hole) {
    return hole.GetHoleStatus() == eHoleStatusInsideSlot;
}

/// A hole that is set aside for another one has its centre no farther from that one than both
/// reach.
double ReachOf(const CHoleAddlInfo& hole) {
    const double tolerance = std::fmax(std::abs(CMxGeom::GetEPS()), std::abs(CMxGeom::GetYTol()));
    return std::fmax(hole.GetSlotVector().length(), hole.GetSize() * 0.5) + tolerance;
}

/// Square millimetres.
double AreaOf(const CHoleAddlInfo& hole) {
    const double radius = hole.GetSize() * 0.5;
    return std::numbers::pi * radius * radius + 4.0 * radius * hole.GetSlotVector().length();
}

bool IsLarger(const CHoleAddlInfo& hole, const CHoleAddlInfo& other) {
    return AreaOf(hole) > AreaOf(other) + kAreaTolerance && !hole.IsEqual(other);
}

/// Through holes are deeper than all others.
bool IsDeeper(const CHoleAddlInfo& hole, const CHoleAddlInfo& other) {
    return !IsThrough(other) &&
           (IsThrough(hole) ||
            hole.GetHoleData().depth > other.GetHoleData().depth + CMxGeom::GetEPS());
}

/// As large, as deep and with its thread: what another one covers need not be made.
bool Covers(const CHoleAddlInfo& hole, const CHoleAddlInfo& other) {
    return !IsLarger(other, hole) && !IsDeeper(other, hole) && HasThreadOf(hole, other);
}

}  // namespace

/// The holes that are left to be made or refused, and those that are set aside for them.
class JobMember::HoleSettlement {
  public:
    explicit HoleSettlement(JobMember& member) : m_member(member) {
        for (long i = 0; i < m_member.m_holes.length(); ++i)
            AddKept(i);
    }

    /// False when there is no hole that it could be set aside for.
    bool SetAsideFor(const CHoleAddlInfo& hole) {
        for (const SetAside reason : {SetAside::kInsideSlot, SetAside::kDuplicate})
            if (const CHoleAddlInfo* other = FindOther(hole, reason)) {
                const bool isTheSame = Repeats(*other, hole) && other->IsEqual(hole);
                m_member.FileSetAside(hole, isTheSame ? SetAside::kDuplicate : reason, *other);
                return true;
            }
        return false;
    }
    /// What is set aside for a smaller hole takes that one's place, and so does a slot that is set
    /// aside for a hole inside it, which stands behind it in the file.
    void Choose(CHoleAddlInfo& hole) {
        if (m_member.HasPlaceFault(hole))
            return;
        m_kept.FindNear(hole.GetXPos(), ReachOf(hole), [&](long index) {
            CHoleAddlInfo& kept = m_member.m_holes[index];
            const bool isChosen = Repeats(kept, hole) && Covers(hole, kept) &&
                                  (!Covers(kept, hole) || IsFirst(hole, kept));
            if (isChosen)
                std::swap(kept, hole);
            return isChosen;
        });
    }
    /// True when others may be set aside for it.
    bool TakeBack(const CHoleAddlInfo& hole) {
        m_member.m_holes.append(hole);
        return AddKept(m_member.m_holes.length() - 1);
    }

  private:
    /// One that will be refused for its place is no reason to leave others out.
    bool AddKept(long index) {
        const CHoleAddlInfo& hole = m_member.m_holes[index];
        if (m_member.HasPlaceFault(hole))
            return false;
        m_kept.Add(index, hole.GetXPos(), ReachOf(hole));
        return true;
    }

    /// The first in the file of those that are near enough.
    const CHoleAddlInfo* FindOther(const CHoleAddlInfo& hole, SetAside reason) const {
        const CHoleAddlInfo* found = nullptr;
        m_kept.FindNear(hole.GetXPos(), ReachOf(hole), [&](long index) {
            const CHoleAddlInfo& kept = m_member.m_holes[index];
            const bool isEarlier =
                found == nullptr || kept.GetHoleData().hostTag < found->GetHoleData().hostTag;
            if (isEarlier && IsReason(kept, hole, reason))
                found = &kept;
            return false;
        });
        return found;
    }
    static bool IsFirst(const CHoleAddlInfo& slot, const CHoleAddlInfo& kept) {
        return kept.GetHoleData().hostTag > slot.GetHoleData().hostTag && slot.IsInside(kept);
    }
    bool IsReason(const CHoleAddlInfo& kept, const CHoleAddlInfo& hole, SetAside reason) const {
        if (!Covers(kept, hole))
            return false;
        return reason == SetAside::kInsideSlot ? kept.IsInside(hole) : Repeats(kept, hole);
    }
    bool Repeats(const CHoleAddlInfo& kept, const CHoleAddlInfo& hole) const {
        return m_member.ViewOf(kept) == m_member.ViewOf(hole) && kept == hole;
    }

    JobMember& m_member;
    ReachIndex m_kept;
};

/// A view's position, or the face where the host gave no tag to tell it by.
long JobMember::ViewOf(const CHoleAddlInfo& hole) const {
    const Feature* const feature = m_ledger.Find(hole.GetHoleData().hostTag);
    return feature == nullptr ? hole.GetViewData().GetHoleFace() : feature->viewPosition;
}

void JobMember::SettleSetAsideHoles() {
    std::vector<CHoleAddlInfo> open;
    for (const CHoleAddlInfo& hole : std::exchange(m_duplicateHoles, {})) {
        if (hole.IsCommented())
            FileMarked(hole);
        else if (!IsRepeated(hole))
            open.push_back(hole);
    }
    if (open.empty())
        return;
    // None is to be left out for a smaller one.
    const auto keyOf = [](const CHoleAddlInfo& hole) {
        return std::pair(-std::round(AreaOf(hole)), hole.GetHoleData().hostTag);
    };
    std::stable_sort(open.begin(), open.end(), [&](const auto& a, const auto& b) {
        return keyOf(a) < keyOf(b);
    });
    const long kept = m_holes.length();
    ChooseOfMutual(open);
    HoleSettlement settlement(*this);
    // What comes back may be what others wait for, so one of those at a time.
    while (!open.empty()) {
        open.erase(std::remove_if(open.begin(),
                                  open.end(),
                                  [&](const auto& hole) { return settlement.SetAsideFor(hole); }),
                   open.end());
        const auto last = std::find_if(
            open.begin(), open.end(), [&](const auto& hole) { return settlement.TakeBack(hole); });
        open.erase(open.begin(), last == open.end() ? last : std::next(last));
    }
    if (m_holes.length() > kept)
        OrderByView();
}

/// Of holes that set each other aside the largest is made, of equal ones the first in the file.
void JobMember::ChooseOfMutual(std::vector<CHoleAddlInfo>& open) {
    HoleSettlement settlement(*this);
    bool isChanged = false;
    for (CHoleAddlInfo& hole : open) {
        const long tag = hole.GetHoleData().hostTag;
        settlement.Choose(hole);
        isChanged = isChanged || hole.GetHoleData().hostTag != tag;
    }
    if (isChanged)
        OrderByView();
}

/// As the library has them: view by view, of each along the member.
void JobMember::OrderByView() {
    std::map<long, long> orderOfView;
    for (const ZetNCView& view : m_structure.getViews())
        orderOfView.insert({view.getViewPos(), static_cast<long>(orderOfView.size())});
    const auto keyOf = [&](const CHoleAddlInfo& hole) {
        return std::tuple(orderOfView[ViewOf(hole)], hole.GetXPos(), hole.GetYPos());
    };
    std::stable_sort(m_holes.begin(), m_holes.end(), [&](const auto& a, const auto& b) {
        return keyOf(a) < keyOf(b);
    });
}

void JobMember::FileMarked(const CHoleAddlInfo& hole) {
    m_duplicateHoles.append(hole);
    m_judging->reasons.push_back(SetAside::kMarked);
    AddSetAside(hole.GetHoleData().hostTag, SetAside::kMarked, 0);
    if (const std::optional<Feature> feature = FeatureOf(hole.GetHoleData().hostTag))
        m_notes.push_back({*feature, kMarkedText + HoleText(hole)});
}

void JobMember::FileSetAside(const CHoleAddlInfo& hole,
                             SetAside reason,
                             const CHoleAddlInfo& other) {
    m_duplicateHoles.append(hole);
    m_judging->reasons.push_back(reason);
    const bool isInSlot = reason == SetAside::kInsideSlot;
    const ZetString text =
        isInSlot ? ZetString::format(kInsideSlotFormat, HoleText(hole), HoleText(other))
                 : ZetString::format(kDuplicateFormat, HoleText(hole), HoleText(other));
    FileFinding({.type = isInSlot ? job::kHoleInsideSlot : job::kDuplicateHole,
                 .text = text,
                 .feature = FeatureOf(hole.GetHoleData().hostTag),
                 .isSetAside = true});
    AddSetAside(hole.GetHoleData().hostTag, reason, other.GetHoleData().hostTag);
}

void JobMember::AddSetAside(long tag, SetAside reason, long otherTag) {
    m_ledger.ClaimSetAside(tag, otherTag);
    const std::optional<Feature> feature = FeatureOf(tag);
    if (feature)
        m_setAside.push_back({*feature, reason, FeatureOf(otherTag).value_or(Feature())});
}

std::vector<MemberHole> JobMember::CollectHoles() const {
    std::vector<MemberHole> holes;
    for (const CHoleAddlInfo& hole : m_holes)
        holes.push_back({hole, SetAside::kNot});
    for (const CHoleAddlInfo& hole : m_cskHoles)
        holes.push_back({hole, hole.GetValid() ? SetAside::kCountersink : SetAside::kNot});
    for (long i = 0; i < m_duplicateHoles.length(); ++i)
        holes.push_back({m_duplicateHoles[i], m_judging->reasons[static_cast<std::size_t>(i)]});
    return holes;
}

}  // namespace plugin
