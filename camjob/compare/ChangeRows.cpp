#include "camjob/compare/ChangeRows.h"

#include "report/drawing/DrawingText.h"

#include <array>
#include <iterator>

namespace camjob {

namespace {

using report::Number;

constexpr double kPercent = 100.0;

/// By FeatureChangeKind.
constexpr std::array kFeatureWords = {"added", "removed", "moved", "recoded", "changed"};

/// "18 at (100, 50), A1".
std::string TextOf(const std::optional<OutputFeature>& feature) {
    if (!feature)
        return {};
    std::string text;
    if (feature->size > 0.0)
        text = (feature->length > 0.0 ? Number(feature->length, 2) + " x " : "") +
               Number(feature->size, 2) + " ";
    text += "at (" + Number(feature->x, 2) + ", " + Number(feature->y, 2) + ")";
    if (feature->angle != 0.0)
        text += ", angle " + Number(feature->angle, 2);
    return feature->code.empty() ? text : text + ", " + feature->code;
}

ChangeRow RowOf(const std::string& mark, const FeatureChange& change) {
    const OutputFeature& known = change.before ? *change.before : *change.after;
    return {
        mark,
        known.face + ": " + known.kind + " " + kFeatureWords[static_cast<std::size_t>(change.kind)],
        TextOf(change.before),
        TextOf(change.after)};
}

/// "2 x PL10x200, 400, in order".
std::string InOneLine(const std::vector<ValueChange>& values, std::string ValueChange::*side) {
    std::string text;
    for (const ValueChange& value : values)
        text += (text.empty() ? "" : value.what == "profile" ? " x " : ", ") + value.*side;
    return text;
}

std::string TextOf(const std::optional<OutputBars>& bars) {
    if (!bars)
        return {};
    const std::string text =
        std::to_string(bars->bars) + ", used " + Number(bars->utilisation * kPercent, 1) + " %";
    return bars->uncut == 0
               ? text
               : text + ", " + std::to_string(bars->uncut) +
                     (bars->uncut == 1 ? " piece without a bar" : " pieces without a bar");
}

}  // namespace

std::string DescribeChanges(const OutputChanges& changes) {
    if (!changes.HasMembers() && changes.bars.empty())
        return "nothing has changed";
    return std::to_string(changes.changed) + (changes.changed == 1 ? " member" : " members") +
           " changed, " + std::to_string(changes.added) + " added, " +
           std::to_string(changes.removed) + " removed, " + std::to_string(changes.unchanged) +
           " as before";
}

std::vector<ChangeRow> RowsOf(const MemberChange& change) {
    if (change.kind == MemberChangeKind::kAdded)
        return {
            {change.mark, "member added", "", InOneLine(change.values, &ValueChange::after)}
        };
    if (change.kind == MemberChangeKind::kRemoved)
        return {
            {change.mark, "member removed", InOneLine(change.values, &ValueChange::before), ""}
        };
    std::vector<ChangeRow> rows;
    for (const ValueChange& value : change.values)
        rows.push_back({change.mark, value.what, value.before, value.after});
    for (const FeatureChange& feature : change.features)
        rows.push_back(RowOf(change.mark, feature));
    return rows;
}

ChangeRow RowOf(const BarChange& change) {
    const OutputBars& known = change.after ? *change.after : *change.before;
    ChangeRow row = {known.profile + (known.material.empty() ? "" : " " + known.material),
                     "bars of " + known.group,
                     TextOf(change.before),
                     TextOf(change.after)};
    if (row.before == row.after)
        row.after += ", cut differently";
    return row;
}

std::vector<ChangeRow> RowsOf(const OutputChanges& changes) {
    std::vector<ChangeRow> rows;
    for (const MemberChange& member : changes.members) {
        std::vector<ChangeRow> own = RowsOf(member);
        rows.insert(rows.end(), std::move_iterator(own.begin()), std::move_iterator(own.end()));
    }
    for (const BarChange& bars : changes.bars)
        rows.push_back(RowOf(bars));
    return rows;
}

}  // namespace camjob
