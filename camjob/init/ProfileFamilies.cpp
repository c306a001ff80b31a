#include "camjob/init/ProfileFamilies.h"

#include "camdata/platform/text/ZetString.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>

namespace camjob {

namespace {

struct CodeRow {
    std::string_view code;
    const char* id;
    const char* heading;
};

/// In the order of the job.
constexpr CodeRow kCodes[] = {
    {"I",  "beams",      "I sections"     },
    {"U",  "channels",   "Channels"       },
    {"L",  "angles",     "Angles"         },
    {"T",  "tees",       "Tees"           },
    {"C",  "c-sections", "C sections"     },
    {"M",  "hollow",     "Hollow sections"},
    {"RO", "tubes",      "Round tubes"    },
    {"RU", "round-bars", "Round bars"     },
    {"B",  "plates",     "Plates"         },
};

struct PrefixRow {
    std::string_view prefix;
    const char* heading;
};

/// What special sections are by the first letters of their names.
constexpr PrefixRow kPrefixes[] = {
    {"Z",   "Z sections"    },
    {"C",   "C sections"    },
    {"HAT", "Hat sections"  },
    {"OM",  "Hat sections"  },
    {"U",   "Channels"      },
    {"L",   "Angles"        },
    {"S",   "Sigma sections"},
};

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string LettersOf(const std::string& name) {
    return {name.begin(), std::find_if_not(name.begin(), name.end(), IsLetter)};
}

std::string InSmallLetters(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

ProfileFamily SpecialFamily(const std::string& letters) {
    const auto row =
        std::find_if(std::begin(kPrefixes), std::end(kPrefixes), [&](const PrefixRow& r) {
            return letters.starts_with(r.prefix);
        });
    ProfileFamily family;
    family.id = letters.empty() ? "special" : InSmallLetters(letters) + "-special";
    family.heading = row == std::end(kPrefixes) ? "Special sections" : row->heading;
    if (!letters.empty())
        family.heading += " (" + letters + ")";
    family.pattern = letters.empty() ? "" : letters + "*";
    family.hasFlangesOverWidth = letters.starts_with("Z");
    return family;
}

/// The first number of the name, unless the header tells another height.
NameNumber HeightIn(const PartSurvey& part) {
    constexpr std::wstring_view kDigits = L"0123456789";
    const ZetString name = ZetString::fromUtf8(part.profile);
    const std::size_t start = name.view().find_first_of(kDigits);
    if (start == std::wstring_view::npos)
        return {};
    const std::wstring_view rest = name.view().substr(start);
    const std::size_t length = std::min(rest.find_first_not_of(kDigits), rest.size());
    const double number = ZetString(std::wstring(rest.substr(0, length))).toDouble();
    const bool fits = number > 0.0 && (part.height <= 0.0 || part.height == number);
    return fits ? NameNumber{start, length} : NameNumber();
}

ProfileFamily NewFamily(const PartSurvey& part) {
    const auto row = std::find_if(std::begin(kCodes), std::end(kCodes), [&](const CodeRow& r) {
        return r.code == part.code;
    });
    if (row == std::end(kCodes))
        return SpecialFamily(LettersOf(part.profile));
    ProfileFamily family;
    family.id = row->id;
    family.heading = row->heading;
    return family;
}

/// By code as in the table; behind them special sections, longer names first: a pattern with more
/// letters is not hidden by one with fewer.
auto PlaceOf(const ProfileFamily& family) {
    const auto row = std::find_if(std::begin(kCodes), std::end(kCodes), [&](const CodeRow& r) {
        return r.code == family.code;
    });
    return std::tuple(
        row - std::begin(kCodes), -static_cast<long>(family.pattern.size()), family.id);
}

}  // namespace

std::vector<ProfileFamily> FindFamilies(const std::vector<PartSurvey>& parts) {
    // Names that differ only in the case of their letters are of two families: patterns see it.
    std::map<std::pair<std::string, std::string>, ProfileFamily> found;
    for (const PartSurvey& part : parts) {
        ProfileFamily fresh = NewFamily(part);
        fresh.code = part.code;
        fresh.height = HeightIn(part);
        ProfileFamily& family = found.try_emplace({part.code, fresh.pattern}, fresh).first->second;
        if (family.height != fresh.height)
            family.height = {};
        family.profiles.insert(part.profile);
        ++family.parts;
        family.hasNoHeight = family.hasNoHeight || part.height <= 0.0;
    }
    std::vector<ProfileFamily> families;
    std::map<std::string, int> ids;
    for (auto& [key, family] : found) {
        if (const int count = ++ids[family.id]; count > 1)
            family.id += "-" + std::to_string(count);
        families.push_back(std::move(family));
    }
    std::stable_sort(families.begin(), families.end(), [](const auto& a, const auto& b) {
        return PlaceOf(a) < PlaceOf(b);
    });
    return families;
}

}  // namespace camjob
