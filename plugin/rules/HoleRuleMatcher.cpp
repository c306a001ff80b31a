#include "plugin/rules/HoleRuleMatcher.h"

#include "job/CodeFormat.h"
#include "plugin/rules/ArrayFromVector.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace plugin {

namespace {

/// Status of codes that pair: any but "not set" will do, the library only keeps it.
constexpr long kPairs = 0;

CHoleCode CodeOf(const job::PairRule& pair) {
    CHoleCode code = StandardCode(pair.code);
    code.SetPairReplaceStr(pair.prefix);
    return code;
}

CHoleRule LibraryRule(const job::HoleRule& rule) {
    CHoleRule result;
    result.SetValues(rule.shape,
                     {StandardCode(rule.code)},
                     {},
                     rule.memberNameLength,
                     ArrayFromVector(rule.excludedMembers),
                     ArrayFromVector(rule.backMarks),
                     ArrayFromVector(rule.otherFaceDistances),
                     ArrayFromVector(rule.diameters),
                     ArrayFromVector(rule.lengths),
                     false,
                     false,
                     StandardCode(rule.group.code),
                     !rule.otherwiseSuffix.isEmpty(),
                     rule.otherwiseSuffix,
                     false);
    return result;
}

CHoleOutPutCode OutPutCode(const job::HoleRule& rule) {
    CHoleOutPutCode code;
    ZetArray<CHoleCode> pairs;
    for (const job::PairRule& pair : rule.pairs)
        pairs.append(CodeOf(pair));
    code.SetHoleCode(StandardCode(rule.code));
    code.SetPairCodes(std::move(pairs));
    code.SetGroupCode(StandardCode(rule.group.code));
    code.SetIsGroupMust(rule.group.isMust);
    return code;
}

/// Not CMxGeom::find, which takes a copy of the array.
bool Contains(const ZetArray<double>& values, double value) {
    return std::any_of(values.begin(), values.end(), [value](double listed) {
        return CMxGeom::IsEqual_Mx(listed, value);
    });
}

bool AllowsSize(const ZetArray<double>& sizes, double size) {
    return sizes.isEmpty() || Contains(sizes, size);
}

bool AllowsFace(const job::HoleRule& rule, const CHoleAddlInfo& hole) {
    const eHoleFace face = hole.GetViewData().GetHoleFace();
    return rule.faces.empty() ||
           std::find(rule.faces.begin(), rule.faces.end(), face) != rule.faces.end();
}

bool AllowsRow(const CHoleRule& rule, const CHoleAddlInfo& hole) {
    if (rule.GetBackMarkArr().isEmpty() && rule.GetOtherFaceArr().isEmpty())
        return true;
    const double y = hole.GetYPos();
    return Contains(rule.GetBackMarkArr(), y) ||
           Contains(rule.GetOtherFaceArr(), hole.GetViewData().GetFaceWidth() - y);
}

bool HasPlace(const CHoleAddlInfo& hole) {
    return std::isfinite(hole.GetXPos()) && std::isfinite(hole.GetYPos());
}

/// The value that comes nearest.
std::optional<double> NearestOf(const std::vector<double>& values, double value) {
    const auto at = std::min_element(values.begin(), values.end(), [&](double a, double b) {
        return std::abs(a - value) < std::abs(b - value);
    });
    return at == values.end() ? std::nullopt : std::optional(*at);
}

/// Distances from the lower edge.
std::vector<double> RowsOf(const job::HoleRule& rule, const CHoleAddlInfo& hole) {
    std::vector<double> rows = rule.backMarks;
    for (const double distance : rule.otherFaceDistances)
        rows.push_back(hole.GetViewData().GetFaceWidth() - distance);
    return rows;
}

/// One thing that a rule of the hole's shape can want, in the order in which it is told.
struct Want {
    const wchar_t* what;
    bool (*isMet)(const HoleRuleMatcher::Entry& entry, const CHoleAddlInfo& hole);
    double (*found)(const CHoleAddlInfo& hole);
    /// What the rule allows, each as `found` gives it; null: not told in numbers.
    std::vector<double> (*allowed)(const job::HoleRule& rule, const CHoleAddlInfo& hole);
};
// clang-format off
constexpr Want kWants[] = {
    {L"diameter",
     [](const auto& entry, const auto& hole) { return AllowsSize(entry.rule.GetDiameters(), hole.GetSize()); },
     [](const auto& hole) { return hole.GetSize(); },
     [](const auto& rule, const auto&) { return rule.diameters; }},
    {L"overall length",
     [](const auto& entry, const auto& hole) { return AllowsSize(entry.rule.GetSecondSizes(), OverallLength(hole)); },
     &OverallLength,
     [](const auto& rule, const auto&) { return rule.lengths; }},
    {L"face",
     [](const auto& entry, const auto& hole) { return AllowsFace(*entry.job, hole); },
     nullptr,
     nullptr},
    {L"row",
     [](const auto& entry, const auto& hole) { return AllowsRow(entry.rule, hole); },
     [](const auto& hole) { return hole.GetYPos(); },
     &RowsOf},
};
// clang-format on

long CountUnmet(const HoleRuleMatcher::Entry& entry, const CHoleAddlInfo& hole) {
    return static_cast<long>(
        std::count_if(std::begin(kWants), std::end(kWants), [&](const Want& want) {
            return !want.isMet(entry, hole);
        }));
}

/// What the hole's diameter lacks to one of the rule's; 0 when the rule allows it.
double DiameterGap(const HoleRuleMatcher::Entry& entry, const CHoleAddlInfo& hole) {
    const double size = hole.GetSize();
    if (AllowsSize(entry.rule.GetDiameters(), size))
        return 0.0;
    return std::abs(*NearestOf(entry.job->diameters, size) - size);
}

bool Fits(const HoleRuleMatcher::Entry& entry, const CHoleAddlInfo& hole) {
    return entry.job->shape == hole.GetHoleShapeType() &&
           std::all_of(std::begin(kWants), std::end(kWants), [&](const Want& want) {
               return want.isMet(entry, hole);
           });
}

/// As the library tells it, which takes copies: rules that exclude nobody need not be asked.
bool Excludes(const HoleRuleMatcher::Entry& entry,
              const ZetString& profileName,
              ZetString& suffix) {
    return !entry.job->excludedMembers.empty() &&
           !entry.rule.LookInAnotherRule(profileName, suffix);
}

bool IsRectangular(const job::HoleRule& rule) {
    return rule.shape == eHoleShapeSquare || rule.shape == eHoleShapeRectangular;
}

bool IsPaired(const job::HoleRule& rule) {
    return !rule.pairs.empty();
}

bool IsGrouped(const job::HoleRule& rule) {
    return !rule.group.code.isEmpty();
}

}  // namespace

CHoleCode StandardCode(const ZetString& text) {
    CHoleCode code;
    code.SetValues(text, kPairs);
    return code;
}

HoleRuleMatcher::HoleRuleMatcher(const std::vector<job::HoleRule>& rules)
    : m_hasRectangles(std::any_of(rules.begin(), rules.end(), IsRectangular)),
      m_hasPairs(std::any_of(rules.begin(), rules.end(), IsPaired)),
      m_hasGroups(std::any_of(rules.begin(), rules.end(), IsGrouped)) {
    m_entries.reserve(rules.size());
    for (const job::HoleRule& rule : rules)
        m_entries.push_back(
            {&rule, LibraryRule(rule), OutPutCode(rule), job::HasFields(rule.code)});
}

HoleRuleMatcher::Match HoleRuleMatcher::Find(const CHoleAddlInfo& hole,
                                             const ZetString& profileName) const {
    CMxGeom::SetTol(eTolY);
    const auto first = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return HasPlace(hole) && Fits(entry, hole);
    });
    const Entry* entry = first == m_entries.end() ? nullptr : &*first;
    ZetString suffix;
    while (entry != nullptr && Excludes(*entry, profileName, suffix)) {
        if (suffix.isEmpty())
            return {nullptr, entry};
        entry = FindById(entry->job->id + suffix);
        if (entry != nullptr && !Fits(*entry, hole))
            entry = nullptr;
    }
    return {entry, nullptr};
}

HoleRuleMatcher::Miss HoleRuleMatcher::FindNearest(const CHoleAddlInfo& hole) const {
    CMxGeom::SetTol(eTolY);
    const Entry* nearest = nullptr;
    std::pair<long, double> least;
    for (const Entry& entry : m_entries) {
        if (entry.job->shape != hole.GetHoleShapeType())
            continue;
        const std::pair<long, double> lacks = {CountUnmet(entry, hole), DiameterGap(entry, hole)};
        if (nearest == nullptr || lacks < least) {
            nearest = &entry;
            least = lacks;
        }
    }
    if (nearest == nullptr || least.first == 0)
        return {.hasShape = nearest != nullptr};
    const Want& want = *std::find_if(std::begin(kWants), std::end(kWants), [&](const Want& each) {
        return !each.isMet(*nearest, hole);
    });
    if (want.found == nullptr)
        return {nearest->job, true, want.what};
    const double found = want.found(hole);
    return {
        nearest->job, true, want.what, NearestOf(want.allowed(*nearest->job, hole), found), found};
}

const HoleRuleMatcher::Entry* HoleRuleMatcher::FindById(const ZetString& id) const {
    const auto at = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return entry.job->id == id;
    });
    return at == m_entries.end() ? nullptr : &*at;
}

double OverallLength(const CHoleAddlInfo& hole) {
    if (hole.GetIsRectHole())
        return hole.GetHoleData().slotLength;
    return hole.GetIsSlot() ? hole.GetHoleData().slotLength + hole.GetSize() : hole.GetSize();
}

}  // namespace plugin
