#include "camjob/compare/OutputChanges.h"

#include "report/drawing/DrawingText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace camjob {

namespace {

std::vector<ValueChange> ValuesOf(const OutputMember& member) {
    return {
        {"quantity", "", std::to_string(member.quantity)},
        {"profile",  "", member.profile                 },
        {"material", "", member.material.value_or("")   },
        {"length",   "", report::Number(member.length)  },
        {"status",   "", member.status                  },
    };
}

/// Two lists of the same values.
std::vector<ValueChange> Differences(std::vector<ValueChange> before,
                                     std::vector<ValueChange> after) {
    std::vector<ValueChange> differences;
    for (std::size_t i = 0; i < before.size(); ++i)
        if (before[i].after != after[i].after)
            differences.push_back(
                {std::move(before[i].what), std::move(before[i].after), std::move(after[i].after)});
    return differences;
}

/// Features that only one of two members has, and how they belong together.
class FeatureMatching {
  public:
    FeatureMatching(std::vector<OutputFeature> before, std::vector<OutputFeature> after);

    std::vector<FeatureChange> Match();

  private:
    using Fits = bool (*)(const OutputFeature& before, const OutputFeature& after);

    void Pair(FeatureChangeKind kind, Fits fits);

    std::vector<OutputFeature> m_before;
    std::vector<OutputFeature> m_after;
    std::vector<FeatureChange> m_changes;
};

FeatureMatching::FeatureMatching(std::vector<OutputFeature> before,
                                 std::vector<OutputFeature> after) {
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    std::set_difference(
        before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(m_before));
    std::set_difference(
        after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(m_after));
}

double Distance(const OutputFeature& a, const OutputFeature& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Joins each feature with the nearest one that fits it.
void FeatureMatching::Pair(FeatureChangeKind kind, Fits fits) {
    std::vector<OutputFeature> unpaired;
    for (OutputFeature& before : m_before) {
        auto nearest = m_after.end();
        for (auto after = m_after.begin(); after != m_after.end(); ++after)
            if (fits(before, *after) &&
                (nearest == m_after.end() || Distance(before, *after) < Distance(before, *nearest)))
                nearest = after;
        if (nearest == m_after.end()) {
            unpaired.push_back(std::move(before));
            continue;
        }
        m_changes.push_back({kind, std::move(before), std::move(*nearest)});
        m_after.erase(nearest);
    }
    m_before = std::move(unpaired);
}

bool IsSamePlace(const OutputFeature& a, const OutputFeature& b) {
    return std::tie(a.face, a.x, a.y) == std::tie(b.face, b.x, b.y);
}

bool IsSameShape(const OutputFeature& a, const OutputFeature& b) {
    return std::tie(a.face, a.kind, a.size, a.length, a.angle) ==
           std::tie(b.face, b.kind, b.size, b.length, b.angle);
}

std::vector<FeatureChange> FeatureMatching::Match() {
    using Feature = OutputFeature;
    Pair(FeatureChangeKind::kRecoded,
         [](const Feature& a, const Feature& b) { return IsSamePlace(a, b) && IsSameShape(a, b); });
    Pair(FeatureChangeKind::kChanged,
         [](const Feature& a, const Feature& b) { return IsSamePlace(a, b) && a.kind == b.kind; });
    Pair(FeatureChangeKind::kMoved, &IsSameShape);
    Pair(FeatureChangeKind::kChanged, &IsSamePlace);
    for (OutputFeature& feature : m_before)
        m_changes.push_back({FeatureChangeKind::kRemoved, std::move(feature), std::nullopt});
    for (OutputFeature& feature : m_after)
        m_changes.push_back({FeatureChangeKind::kAdded, std::nullopt, std::move(feature)});
    const auto place = [](const FeatureChange& change) -> const OutputFeature& {
        return change.before ? *change.before : *change.after;
    };
    std::stable_sort(m_changes.begin(), m_changes.end(), [&](const auto& a, const auto& b) {
        return place(a) < place(b);
    });
    return std::move(m_changes);
}

MemberChange Compared(const OutputMember& before, OutputMember after) {
    // Outputs of earlier versions do not tell it.
    if (!before.material)
        after.material.reset();
    return {before.mark,
            MemberChangeKind::kChanged,
            Differences(ValuesOf(before), ValuesOf(after)),
            FeatureMatching(before.features, std::move(after.features)).Match()};
}

MemberChange WentAway(const OutputMember& before) {
    MemberChange change = {before.mark, MemberChangeKind::kRemoved, ValuesOf(before), {}};
    for (ValueChange& value : change.values)
        std::swap(value.before, value.after);
    return change;
}

auto KeyOf(const OutputBars& bars) {
    return std::tie(bars.group, bars.profile, bars.material);
}

const OutputBars* FindLike(const std::vector<OutputBars>& list, const OutputBars& bars) {
    const auto at = std::find_if(list.begin(), list.end(), [&](const OutputBars& other) {
        return KeyOf(other) == KeyOf(bars);
    });
    return at == list.end() ? nullptr : &*at;
}

std::vector<BarChange> CompareBars(const std::vector<OutputBars>& before,
                                   const std::vector<OutputBars>& after) {
    std::vector<BarChange> changes;
    for (const OutputBars& bars : after) {
        const OutputBars* old = FindLike(before, bars);
        if (old == nullptr)
            changes.push_back({std::nullopt, bars});
        else if (old->bars != bars.bars || old->utilisation != bars.utilisation)
            changes.push_back({*old, bars});
    }
    for (const OutputBars& bars : before)
        if (FindLike(after, bars) == nullptr)
            changes.push_back({bars, std::nullopt});
    return changes;
}

}  // namespace

std::string StatusInWords(bool isValid, bool hasWarnings, bool isNonStandard) {
    const std::string status = !isValid ? "error" : hasWarnings ? "warning" : "in order";
    return isNonStandard ? status + ", non-standard" : status;
}

void OutputComparison::TakeOld(const OutputMember& old) {
    m_oldMarks.insert(old.mark);
    std::optional<OutputMember> found = m_lookUp(old.mark);
    if (!found) {
        ++m_changes.removed;
        m_changes.members.push_back(WentAway(old));
        return;
    }
    MemberChange change = Compared(old, *std::move(found));
    const bool isChanged = !change.values.empty() || !change.features.empty();
    ++(isChanged ? m_changes.changed : m_changes.unchanged);
    if (isChanged)
        m_changes.members.push_back(std::move(change));
}

OutputChanges OutputComparison::Finish(const std::vector<std::string>& marks,
                                       const std::vector<OutputBars>& oldBars,
                                       const std::vector<OutputBars>& newBars) {
    for (const std::string& mark : marks) {
        if (m_oldMarks.count(mark) > 0)
            continue;
        ++m_changes.added;
        m_changes.members.push_back(
            {mark, MemberChangeKind::kAdded, ValuesOf(m_lookUp(mark).value()), {}});
    }
    OrderMembers(marks);
    m_changes.bars = CompareBars(oldBars, newBars);
    return std::move(m_changes);
}

void OutputComparison::OrderMembers(const std::vector<std::string>& marks) {
    std::unordered_map<std::string, std::size_t> positions;
    for (const std::string& mark : marks)
        positions.insert({mark, positions.size()});
    const auto position = [&](const MemberChange& change) {
        const auto at = positions.find(change.mark);
        return at == positions.end() ? marks.size() : at->second;
    };
    std::stable_sort(m_changes.members.begin(),
                     m_changes.members.end(),
                     [&](const auto& a, const auto& b) { return position(a) < position(b); });
}

}  // namespace camjob
