#include "camjob/init/JobDraftText.h"

#include "job/MessageTexts.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace camjob {

namespace {

/// Names of profiles that a comment lists.
constexpr std::size_t kMaxProfiles = 6;

/// As a TOML text.
std::string Text(const std::string& text) {
    std::string quoted;
    for (const char c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return '"' + quoted + '"';
}

std::string Count(long count, const std::string& one, const std::string& several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

/// "[18, 22.5]"
std::string Numbers(const std::set<double>& numbers) {
    std::string list;
    for (const double number : numbers)
        list += (list.empty() ? "" : ", ") + job::ShowNumber(number);
    return "[" + list + "]";
}

/// A comment's line: control characters of a file's texts would end it.
std::string Comment(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, ' ');
    return "# " + text + "\n";
}

// ---- the job and its files ----------------------------------------------------------------------

/// By job::MarkSource.
constexpr const char* kMarkMeanings[] = {
    "line 4 of the header",
    "line 2 of the header",
    "line 3 of the header",
    "the file's name, for no header line differs from part to part",
    "the file's name with its folders, for files share their names",
};
static_assert(std::size(kMarkMeanings) == std::size(job::kMarkSources));

std::string JobTable(const JobDraft& draft) {
    std::string text = "[job]\nname = " + Text(draft.name) + "\n";
    text += Comment(Count(draft.fileCount, "file", "files") + "; * stands for any text");
    text += "nc_files = [\n";
    for (const std::string& file : draft.ncFiles)
        text += "    " + Text(file) + ",\n";
    return text + "]\noutput = \"out\"\n";
}

std::string NcTable(const JobDraft& draft) {
    std::string text = "\n[nc]\n";
    text += std::string("mark = \"") + job::NameOf(draft.mark) + "\"  # " +
            kMarkMeanings[static_cast<std::size_t>(draft.mark)] + "\n";
    if (!draft.foreignName.empty())
        text += Comment("Some names are not UTF-8. " + Text(draft.foreignName) +
                        " is wrong? As windows-1251 it is " + Text(draft.otherReading) + ".") +
                "# encoding = \"windows-1251\"\n";
    return text;
}

std::string LeftOutFiles(const JobDraft& draft) {
    if (draft.leftOut.empty())
        return "";
    std::string text = "\n# Not in this job:\n";
    for (const RefusedFile& file : draft.leftOut)
        text += Comment("  " + file.reason);
    return text;
}

// ---- families -----------------------------------------------------------------------------------

std::string GroupTable(const ProfileFamily& family) {
    return "\n[[group]]\nid = " + Text(family.id) + "\nheader = [\"\", " + Text(family.heading) +
           "]\nsort = [\"profile_name\", \"length\", \"mark\"]\n";
}

std::string ProfileComment(const ProfileFamily& family) {
    std::string names;
    std::size_t count = 0;
    for (const std::string& profile : family.profiles)
        if (count++ < kMaxProfiles)
            names += (names.empty() ? "" : ", ") + profile;
    if (count > kMaxProfiles)
        names += ", and " + std::to_string(count - kMaxProfiles) + " more";
    return Comment(family.heading + ": " + Count(family.parts, "part", "parts") + " of " + names);
}

/// Where headers do not tell it.
std::string HeightLines(const ProfileFamily& family) {
    const bool isInName = family.height.length > 0;
    const NameNumber place = isInName ? family.height : NameNumber{1, 3};
    return std::string(isInName
                           ? "# Some headers tell no height: is it the first number of the name?\n"
                           : "# Some headers tell no height: where does it come from?\n# ") +
           "height = { source = \"name\", start = " + std::to_string(place.start) +
           ", length = " + std::to_string(place.length) + " }\n";
}

std::string MemberTypeTable(const ProfileFamily& family) {
    std::string text =
        "\n" + ProfileComment(family) + "[[member_type]]\nid = " + Text(family.id) + "\n";
    if (!family.pattern.empty())
        text += "profile = " + Text(family.pattern) + "\n";
    text += "code = " + Text(family.code) + "\ngroup = " + Text(family.id) + "\n";
    if (family.hasNoHeight)
        text += HeightLines(family);
    if (family.hasFlangesOverWidth)
        text +=
            "# Where holes in the flanges are measured over the whole width: where does the web stand?\n"
            "# top_flange = { zero = 64.0 }\n"
            "# bottom_flange = { zero = 66.0, reversed = true }\n";
    return text;
}

// ---- holes and notches --------------------------------------------------------------------------

struct ShapeRow {
    eHoleShapeType shape;
    const char* id;
    const char* word;
    const char* code;
    bool hasLengths;
};

/// In the order of the job.
constexpr ShapeRow kShapes[] = {
    {eHoleShapeRound,       "round",       "round",       "D{diameter:.1f}",              false},
    {eHoleShapeCountersunk, "countersunk", "countersunk", "K{diameter:.1f}",              false},
    {eHoleShapeSlot,        "slot",        "slot",        "S{diameter:.1f}x{length:.1f}", true },
    {eHoleShapeRectangular, "rectangle",   "rectangle",   "R{length:.1f}x{width:.1f}",    true },
    {eHoleShapeSquare,      "square",      "square",      "Q{width:.1f}",                 false},
    {eHoleShapeUnknown,     "thread",      "other",       "T{diameter:.1f}",              false},
};

std::string HoleRules(const JobDraft& draft) {
    std::string text;
    for (const ShapeRow& row : kShapes) {
        const auto found = draft.holes.find(row.shape);
        if (found == draft.holes.end())
            continue;
        const HoleSizes& sizes = found->second;
        text += "\n" + Comment(Count(sizes.holes, "hole", "holes")) + "[[hole_rule]]\nid = \"" +
                row.id + "\"\nshape = \"" + row.word +
                "\"\ndiameters = " + Numbers(sizes.diameters) + "\n";
        if (row.hasLengths)
            text += "lengths = " + Numbers(sizes.lengths) + "\n";
        text += std::string("code = \"") + row.code + "\"\n";
    }
    return text;
}

const char* AlongWord(job::NotchCorner corner) {
    return corner == job::NotchCorner::kStart ? "start" : "end";
}

const char* AcrossWord(job::NotchCorner corner) {
    return corner == job::NotchCorner::kStart ? "lower" : "upper";
}

std::string NotchId(const NotchForm& form) {
    return std::string(job::NameOf(form.face)) + "-" + AlongWord(form.along) + "-" +
           AcrossWord(form.across) + "-" +
           (form.isRectangle ? "rectangle" : std::to_string(form.corners)) +
           (form.isParallel ? "" : "-turned");
}

std::string CornerNotch(const NotchForm& form, long count) {
    std::string text = "\n" + Comment(Count(count, "notch", "notches")) +
                       "[[corner_notch]]\nid = " + Text(NotchId(form)) + "\nalong = \"" +
                       AlongWord(form.along) + "\"\nacross = \"" + AcrossWord(form.across) +
                       "\"\nface = \"" + job::NameOf(form.face) +
                       "\"\ncorners = " + std::to_string(form.corners) + "\n";
    if (form.isRectangle)
        text += "rectangle = true\n";
    if (form.isParallel)
        text += "parallel = true\n";
    return text + "output = \"NOTCH %.1f x %.1f\"\nvalues = [\"length\", \"width\"]\n";
}

/// What asks for more corners or a rectangle goes first: a definition without takes those too.
std::string CornerNotches(const JobDraft& draft) {
    std::vector<std::pair<NotchForm, long>> forms(draft.notches.begin(), draft.notches.end());
    const auto strictness = [](const NotchForm& form) {
        return (form.isRectangle ? 2 : 0) + (form.isParallel ? 1 : 0);
    };
    std::stable_sort(forms.begin(), forms.end(), [&](const auto& a, const auto& b) {
        return strictness(a.first) > strictness(b.first);
    });
    std::string text;
    for (const auto& [form, count] : forms)
        text += CornerNotch(form, count);
    return text;
}

std::string Trims(const JobDraft& draft) {
    if (draft.trims == 0)
        return "";
    return "\n" + Comment(Count(draft.trims, "cut", "cuts") + " along a whole side of a face") +
           "[[trim]]\nid = \"trim\"\ncode = \"TRIM\"\n";
}

std::string Mitres(const JobDraft& draft) {
    if (draft.mitres == 0)
        return "";
    return "\n" + Comment(Count(draft.mitres, "mitre", "mitres") +
                          " at the members' ends: made without a rule, as records \"mitre\".");
}

std::string UncoveredTables(const JobDraft& draft) {
    std::string text =
        "\n# A hole that no rule above covers is an error; \"output\" makes it all the same.\n"
        "[uncovered_holes]\naction = \"report\"\ncode = \"?{diameter:.1f}\"\n";
    if (draft.otherCuts > 0)
        text += "\n" +
                Comment(Count(draft.otherCuts, "opening or notch", "openings and notches") +
                        " of other forms: cut along the outline; \"report\" makes them errors.") +
                "[uncovered_notches]\naction = \"accept\"\ncode = \"CUT\"\n";
    return text;
}

std::string Ruler(const std::string& what) {
    constexpr std::size_t kWidth = 96;
    const std::string begin = "\n# ---- " + what + " ";
    return begin + std::string(kWidth - std::min(begin.size(), kWidth), '-') + "\n";
}

}  // namespace

std::string WriteJobText(const JobDraft& draft) {
    std::string text =
        "# A job for camjob, made from NC files.\n#\n"
        "#   camjob run job.toml               makes all files of the job\n"
        "#   camjob init keys --kind purlins   shows every key of a job, in the new folder keys\n#\n"
        "# Lengths are in mm. Lines that begin with # are comments.\n\n";
    text += JobTable(draft) + NcTable(draft) + LeftOutFiles(draft);
    text += Ruler("groups: sections of the orders");
    for (const ProfileFamily& family : draft.families)
        text += GroupTable(family);
    text += Ruler("kinds of members: the first that fits is a member's");
    for (const ProfileFamily& family : draft.families)
        text += MemberTypeTable(family);
    text += Ruler("holes and notches: the first that fits counts");
    return text + HoleRules(draft) + CornerNotches(draft) + Trims(draft) + Mitres(draft) +
           UncoveredTables(draft);
}

}  // namespace camjob
