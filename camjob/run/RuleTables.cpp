#include "camjob/run/RuleTables.h"

#include "camjob/console/ReportText.h"
#include "job/ReportWords.h"

#include <algorithm>
#include <array>
#include <string>

namespace camjob {

namespace {

using report::PageTable;

std::string Value(double value) {
    return ZetString::format(L"%.10g", value).toUtf8();
}

std::string Value(long value) {
    return std::to_string(value);
}

/// Nothing where there is no limit.
std::string Limit(long limit) {
    return limit < 0 ? "" : Value(limit);
}

/// Parts that say something, a separator between.
std::string Listed(const std::vector<std::string>& parts, const char* separator = ", ") {
    std::string text;
    for (const std::string& part : parts)
        if (!part.empty())
            text += (text.empty() ? "" : separator) + part;
    return text;
}

template <typename T, typename TextOf>
std::string ListOf(const std::vector<T>& items, TextOf textOf) {
    std::vector<std::string> texts;
    for (const T& item : items)
        texts.push_back(textOf(item));
    return Listed(texts);
}

std::string ListOf(const std::vector<double>& values) {
    return ListOf(values, [](double value) { return Value(value); });
}

std::string ListOf(const std::vector<ZetString>& texts) {
    return ListOf(texts, [](const ZetString& text) { return text.toUtf8(); });
}

std::string ListOf(const std::vector<eHoleFace>& faces) {
    return ListOf(faces, [](eHoleFace face) { return std::string(job::NameOf(face)); });
}

std::string YesIf(bool isSo) {
    return isSo ? "yes" : "";
}

/// Columns that say nothing in any row go.
PageTable WithoutEmptyColumns(const PageTable& table) {
    PageTable kept = {
        table.title, {}, std::vector<std::vector<std::string>>(table.rows.size()), ""};
    for (std::size_t column = 0; column < table.headings.size(); ++column) {
        const bool hasText = std::any_of(table.rows.begin(),
                                         table.rows.end(),
                                         [&](const auto& row) { return !row[column].empty(); });
        if (!hasText)
            continue;
        kept.headings.push_back(table.headings[column]);
        for (std::size_t row = 0; row < table.rows.size(); ++row)
            kept.rows[row].push_back(table.rows[row][column]);
    }
    return kept;
}

template <typename T, typename RowOf>
PageTable TableOf(const char* title,
                  std::vector<std::string> headings,
                  const std::vector<T>& items,
                  RowOf rowOf) {
    PageTable table = {title, std::move(headings), {}, ""};
    for (const T& item : items)
        table.rows.push_back(rowOf(item));
    return WithoutEmptyColumns(table);
}

std::string LengthsOf(const CMemberValidations& limits) {
    const double least = limits.GetMinimumLength();
    const double most = limits.GetMaximumLength();
    return Listed({least > 0.0 ? "from " + Value(least) : "",
                   most < job::kAnyLength ? "to " + Value(most) : ""},
                  " ");
}

std::string ZeroOf(const char* name, const job::FlangeZero& zero) {
    if (zero.zero == 0.0 && !zero.isReversed)
        return {};
    return name + (" from " + Value(zero.zero)) + (zero.isReversed ? " backwards" : "");
}

/// What its findings do, where it is not the usual.
std::string ReportsOf(const job::MemberType& type) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < type.reports.size(); ++i)
        if (type.reports[i] != job::kDefaultReports[i])
            texts.push_back(std::string(job::kFindingTypes[i].name) + ": " +
                            job::NameOfReport(type.reports[i]));
    return Listed(texts);
}

PageTable MemberTypes(const job::Job& job) {
    const auto rowOf = [&](const job::MemberType& type) -> std::vector<std::string> {
        const CMemberValidations& limits = type.limits;
        return {type.id.toUtf8(),
                type.profilePattern.toUtf8(),
                type.codePattern.toUtf8(),
                type.isSkipped ? "left out" : job.groups[type.group].id.toUtf8(),
                LengthsOf(limits),
                Limit(limits.GetNoOfHoles()),
                Limit(limits.GetNoOfInternalContours()),
                Limit(limits.GetNoOfExternalContours()),
                Listed({ZeroOf("top", type.topFlange), ZeroOf("bottom", type.bottomFlange)}),
                type.pattern ? job.patterns[*type.pattern].id.toUtf8() : "",
                YesIf(type.areMarksMade),
                ReportsOf(type)};
    };
    return TableOf("Member types: the first that fits judges",
                   {"Type",
                    "Profile",
                    "Code",
                    "Group",
                    "Length",
                    "Holes",
                    "Openings",
                    "Notches",
                    "Flanges measured",
                    "Pattern",
                    "Marks made",
                    "Findings that do something unusual"},
                   job.memberTypes,
                   rowOf);
}

/// Below 0 it is a multiple of the hole's diameter.
std::string Distance(double value) {
    return value == 0.0  ? "not checked"
           : value < 0.0 ? Value(-value) + " x diameter"
                         : Value(value) + " mm";
}

/// By job::Uncovered.
constexpr std::array kUncoveredWords = {"not made", "made as ", "accepted as "};

std::string TextOf(const job::UncoveredRule& rule) {
    const auto action = static_cast<std::size_t>(rule.action);
    return kUncoveredWords[action] +
           (rule.action == job::Uncovered::kReport ? "" : rule.code.toUtf8());
}

PageTable Tolerances(const job::Job& job) {
    const job::Tolerances& tolerances = job.tolerances;
    const auto checked = [&](double value) {
        return job.areDistancesChecked ? Distance(value) : "not checked";
    };
    return {
        "Tolerances and distances",
        {"What",                                                      "Value"},
        {
          {"Equal within", Value(tolerances.eps) + " mm"},
          {"In general", Value(tolerances.general) + " mm"},
          {"Along the member", Value(tolerances.x) + " mm"},
          {"Across a face", Value(tolerances.y) + " mm"},
          {"Angles", Value(tolerances.angle) + "\xC2\xB0"},
          {"Hole to edge, at least", checked(tolerances.edgeDistance)},
          {"Hole to flange or web, at least", checked(tolerances.distanceFromFace)},
          {"Hole to end, at least", checked(tolerances.endDistance)},
          {"Pieces of a member, at most", Value(job.maximumQuantity)},
          {"Holes that no rule covers", TextOf(job.uncoveredHoles)},
          {"Notches that none describes", TextOf(job.uncoveredNotches)},
          },
        ""
    };
}

/// By eHoleShapeType.
constexpr std::array kShapeWords = {"other", "round", "countersunk", "slot", "square", "rectangle"};

std::string PairsOf(const job::HoleRule& rule) {
    return ListOf(rule.pairs,
                  [](const job::PairRule& pair) {
                      return pair.code.toUtf8() + " at " + Value(pair.spacing) + " mm";
                  }) +
           (rule.isPairMust ? ", must" : "");
}

std::string GroupOf(const job::GroupRule& group) {
    if (group.code.isEmpty())
        return {};
    return group.code.toUtf8() + ", " + Value(group.holeCount) + " holes" +
           (group.isMust ? ", must" : "");
}

std::string ExcludedBy(const job::HoleRule& rule) {
    const std::string suffix = rule.otherwiseSuffix.toUtf8();
    return ListOf(rule.excludedMembers) + (suffix.empty() ? "" : ": " + rule.id.toUtf8() + suffix);
}

PageTable HoleRules(const job::Job& job) {
    const auto rowOf = [](const job::HoleRule& rule) -> std::vector<std::string> {
        return {rule.id.toUtf8(),
                kShapeWords[static_cast<std::size_t>(rule.shape)],
                ListOf(rule.diameters),
                ListOf(rule.lengths),
                ListOf(rule.faces),
                ListOf(rule.backMarks),
                ListOf(rule.otherFaceDistances),
                ExcludedBy(rule),
                PairsOf(rule),
                GroupOf(rule.group),
                rule.code.toUtf8()};
    };
    return TableOf("Hole rules: the first that fits judges",
                   {"Rule",
                    "Shape",
                    "Diameters",
                    "Lengths",
                    "Faces",
                    "From one edge",
                    "From the other",
                    "Not for",
                    "Second hole",
                    "Group",
                    "Code"},
                   job.holeRules,
                   rowOf);
}

/// By NotchCorner.
constexpr std::array kAlongWords = {"start", "end", "any"};
constexpr std::array kAcrossWords = {"lower", "upper", "any"};

PageTable CornerNotches(const job::Job& job) {
    const auto rowOf = [](const job::CornerNotch& notch) -> std::vector<std::string> {
        const SCheckNotch& shape = notch.definition;
        return {notch.id.toUtf8(),
                job::NameOf(shape.face),
                kAlongWords[static_cast<std::size_t>(notch.along)],
                kAcrossWords[static_cast<std::size_t>(notch.across)],
                Value(static_cast<long>(shape.vertexCount)),
                YesIf(shape.mustBeRect),
                YesIf(shape.mustBeParallelToAxis),
                shape.outPutFormat.toUtf8()};
    };
    return TableOf(
        "Corner notches",
        {"Notch", "Face", "Along", "Across", "Corners", "Rectangle", "Not turned", "Code"},
        job.cornerNotches,
        rowOf);
}

/// By TrimSide.
constexpr std::array kSideWords = {"start", "end", "lower", "upper"};

PageTable Trims(const job::Job& job) {
    const auto rowOf = [](const job::TrimRule& trim) -> std::vector<std::string> {
        return {trim.id.toUtf8(),
                ListOf(trim.faces),
                ListOf(trim.sides,
                       [](job::TrimSide side) -> std::string {
                           return kSideWords[static_cast<std::size_t>(side)];
                       }),
                trim.code.toUtf8()};
    };
    return TableOf("Trims", {"Trim", "Faces", "Sides", "Code"}, job.trims, rowOf);
}

/// A row per hole.
PageTable Patterns(const job::Job& job) {
    PageTable table = {
        "Fixed patterns",
        {"Pattern",       "Length", "Mirrored too", "Diameter", "Positions", "Code"},
        {   },
        ""
    };
    for (const job::FixedPattern& pattern : job.patterns)
        for (const job::PatternHole& hole : pattern.holes)
            table.rows.push_back({pattern.id.toUtf8(),
                                  Value(pattern.fixedLength),
                                  YesIf(pattern.isMirrorAllowed),
                                  Value(hole.diameter),
                                  ListOf(hole.positions),
                                  hole.code.toUtf8()});
    return table;
}

PageTable Stocks(const job::Job& job) {
    const auto rowOf = [](const job::Stock& stock) -> std::vector<std::string> {
        return {stock.profilePattern.toUtf8(),
                Value(stock.length),
                stock.quantity ? Value(*stock.quantity) : "any",
                stock.price ? Value(*stock.price) : "",
                Value(stock.kerf),
                Value(stock.gripStart),
                Value(stock.gripEnd),
                stock.leastOffcut ? Value(*stock.leastOffcut) : ""};
    };
    return TableOf("Bars to cut from",
                   {"Profile",
                    "Length",
                    "Number",
                    "Price",
                    "Saw cut",
                    "Grip at start",
                    "Grip at end",
                    "Off-cut kept from"},
                   job.stocks,
                   rowOf);
}

PageTable Assemblies(const job::Job& job) {
    const auto rowOf = [](const job::Assembly& assembly) -> std::vector<std::string> {
        return {assembly.mark.toUtf8(), ListOf(assembly.parts, [](const job::AssemblyPart& part) {
                    return Value(part.count) + " x " + part.mark.toUtf8();
                })};
    };
    return TableOf("Assemblies", {"Main part", "Single parts"}, job.assemblies, rowOf);
}

}  // namespace

std::vector<PageTable> RuleTables(const job::Job& job) {
    return {MemberTypes(job),
            HoleRules(job),
            CornerNotches(job),
            Trims(job),
            Patterns(job),
            Tolerances(job),
            Stocks(job),
            Assemblies(job)};
}

}  // namespace camjob
