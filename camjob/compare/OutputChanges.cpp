#include "camjob/compare/OutputChanges.h"

#include "report/drawing/DrawingText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
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

using Features = std::vector<OutputFeature>;

double Distance(const OutputFeature& a, const OutputFeature& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Which of the longer list each of the shorter one belongs to, both in one order that is kept, and
/// how far they lie apart altogether.
struct Alignment {
    std::vector<std::size_t> partners;
    double distance = 0.0;
};

/// The one with the least distance. Nobody's partner is further down the list than the difference
/// in length allows.
Alignment Align(const Features& shorter, const Features& longer) {
    const std::size_t width = longer.size() - shorter.size() + 1;
    std::vector<bool> isSkipped(shorter.size() * width);
    std::vector<double> least(width, 0.0);  ///< by how many of the longer list have no partner yet
    for (std::size_t i = 0; i < shorter.size(); ++i)
        for (std::size_t skipped = 0; skipped < width; ++skipped) {
            least[skipped] += Distance(shorter[i], longer[i + skipped]);
            if (skipped > 0 && least[skipped - 1] <= least[skipped]) {
                least[skipped] = least[skipped - 1];
                isSkipped[i * width + skipped] = true;
            }
        }
    Alignment alignment = {std::vector<std::size_t>(shorter.size()), least.back()};
    std::size_t skipped = width - 1;
    for (std::size_t i = shorter.size(); i-- > 0;) {
        while (isSkipped[i * width + skipped])
            --skipped;
        alignment.partners[i] = i + skipped;
    }
    return alignment;
}

bool IsEarlierAlong(const OutputFeature& a, const OutputFeature& b) {
    return std::tie(a.x, a.y) < std::tie(b.x, b.y);
}

bool IsEarlierAcross(const OutputFeature& a, const OutputFeature& b) {
    return std::tie(a.y, a.x) < std::tie(b.y, b.x);
}

/// In their order along the member or across it, whichever brings less distance.
Alignment AlignBest(Features& shorter, Features& longer) {
    const auto align = [&](auto isEarlier) {
        std::sort(shorter.begin(), shorter.end(), isEarlier);
        std::sort(longer.begin(), longer.end(), isEarlier);
        return Align(shorter, longer);
    };
    const double across = align(&IsEarlierAcross).distance;
    const Alignment along = align(&IsEarlierAlong);
    return along.distance <= across ? along : align(&IsEarlierAcross);
}

/// Features of both members that are alike in what a step asks for.
struct AlikeFeatures {
    Features before;
    Features after;
};

/// Features that only one of two members has, and how they belong together.
class FeatureMatching {
  public:
    FeatureMatching(Features before, Features after);

    std::vector<FeatureChange> Match();

  private:
    /// What becomes of features that differ in nothing but what `forget` takes from them.
    struct Step {
        FeatureChangeKind kind;
        void (*forget)(OutputFeature& feature);
        bool isForAllOnly;  ///< only where none of those that are alike stays alone
    };
    static const Step kSteps[];

    void Take(const Step& step);
    void Pair(FeatureChangeKind kind, AlikeFeatures alike);

    Features m_before;
    Features m_after;
    std::vector<FeatureChange> m_changes;
};

void ForgetPlace(OutputFeature& feature) {
    feature.x = feature.y = 0.0;
}

void ForgetCode(OutputFeature& feature) {
    feature.code.clear();
}

void ForgetMeasures(OutputFeature& feature) {
    feature.size = feature.length = feature.angle = 0.0;
    ForgetCode(feature);
}

void ForgetPlaceAndCode(OutputFeature& feature) {
    ForgetPlace(feature);
    ForgetCode(feature);
}

void ForgetAllButPlace(OutputFeature& feature) {
    ForgetMeasures(feature);
    feature.kind.clear();
}

/// A face has its outline, whatever becomes of it.
void ForgetOutline(OutputFeature& feature) {
    if (feature.IsOutline()) {
        ForgetPlace(feature);
        ForgetMeasures(feature);
    }
}

/// A row that moves keeps its order, and where it can each of its codes.
const FeatureMatching::Step FeatureMatching::kSteps[] = {
    {FeatureChangeKind::kChanged, &ForgetOutline,      true },
    {FeatureChangeKind::kRecoded, &ForgetCode,         false},
    {FeatureChangeKind::kChanged, &ForgetMeasures,     false},
    {FeatureChangeKind::kMoved,   &ForgetPlace,        true },
    {FeatureChangeKind::kMoved,   &ForgetPlaceAndCode, true },
    {FeatureChangeKind::kMoved,   &ForgetPlace,        false},
    {FeatureChangeKind::kMoved,   &ForgetPlaceAndCode, false},
    {FeatureChangeKind::kChanged, &ForgetAllButPlace,  false},
};

FeatureMatching::FeatureMatching(Features before, Features after) {
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    std::set_difference(
        before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(m_before));
    std::set_difference(
        after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(m_after));
}

void FeatureMatching::Pair(FeatureChangeKind kind, AlikeFeatures alike) {
    const bool isBeforeShorter = alike.before.size() <= alike.after.size();
    Features& shorter = isBeforeShorter ? alike.before : alike.after;
    Features& longer = isBeforeShorter ? alike.after : alike.before;
    const Alignment alignment = AlignBest(shorter, longer);
    std::vector<bool> isPaired(longer.size());
    for (std::size_t i = 0; i < shorter.size(); ++i) {
        const std::size_t partner = alignment.partners[i];
        isPaired[partner] = true;
        m_changes.push_back(isBeforeShorter ? FeatureChange{kind, shorter[i], longer[partner]}
                                            : FeatureChange{kind, longer[partner], shorter[i]});
    }
    Features& alone = isBeforeShorter ? m_after : m_before;
    for (std::size_t i = 0; i < longer.size(); ++i)
        if (!isPaired[i])
            alone.push_back(std::move(longer[i]));
}

void FeatureMatching::Take(const Step& step) {
    std::map<OutputFeature, AlikeFeatures> groups;
    const auto sortIn = [&](Features& features, Features AlikeFeatures::*side) {
        for (OutputFeature& feature : std::exchange(features, {})) {
            OutputFeature key = feature;
            step.forget(key);
            (groups[std::move(key)].*side).push_back(std::move(feature));
        }
    };
    sortIn(m_before, &AlikeFeatures::before);
    sortIn(m_after, &AlikeFeatures::after);
    for (auto& [ignored, alike] : groups) {
        if (!step.isForAllOnly || alike.before.size() == alike.after.size()) {
            Pair(step.kind, std::move(alike));
            continue;
        }
        m_before.insert(m_before.end(), alike.before.begin(), alike.before.end());
        m_after.insert(m_after.end(), alike.after.begin(), alike.after.end());
    }
}

std::vector<FeatureChange> FeatureMatching::Match() {
    for (const Step& step : kSteps)
        Take(step);
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
        else if (*old != bars)
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

void OutputComparison::TakeUnchanged(const std::string& mark) {
    m_oldMarks.insert(mark);
    ++m_changes.unchanged;
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
