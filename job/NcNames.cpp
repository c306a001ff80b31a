#include "job/NcNames.h"

#include "job/FileNames.h"
#include "job/MessageTexts.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <vector>

namespace job {

namespace {

struct NameRow {
    std::wstring_view name;
    ZetString NcNameValues::*value;
    bool isOfPart;  ///< members differ in it
};

constexpr NameRow kNames[] = {
    {L"mark",      &NcNameValues::mark,     true },
    {L"file_name", &NcNameValues::fileName, true },
    {L"drawing",   &NcNameValues::drawing,  true },
    {L"profile",   &NcNameValues::profile,  false},
    {L"phase",     &NcNameValues::phase,    false},
    {L"order",     &NcNameValues::order,    false},
    {L"group",     &NcNameValues::group,    false},
};

const NameRow* FindName(std::wstring_view name) {
    const auto* const row = std::find_if(std::begin(kNames),
                                         std::end(kNames),
                                         [&](const NameRow& each) { return each.name == name; });
    return row == std::end(kNames) ? nullptr : row;
}

/// Takes the text before the next value, and the value's name; npos as its end: there is none.
struct NamePart {
    std::wstring_view text;
    std::wstring_view name;
    bool hasValue = false;
};

NamePart TakePart(std::wstring_view& pattern) {
    const std::size_t begin = pattern.find(L'{');
    const std::size_t end = pattern.find(L'}', begin);
    const bool hasValue = end != std::wstring_view::npos;
    NamePart part{hasValue ? pattern.substr(0, begin) : pattern, {}, hasValue};
    if (part.hasValue)
        part.name = pattern.substr(begin + 1, end - begin - 1);
    pattern = part.hasValue ? pattern.substr(end + 1) : std::wstring_view();
    return part;
}

std::vector<std::string> KnownNames() {
    std::vector<std::string> names;
    for (const NameRow& row : kNames)
        names.push_back(ZetString(row.name).toUtf8());
    return names;
}

/// "a, b and c"
std::string Listed(const std::vector<std::string>& words) {
    std::string text = words.front();
    for (std::size_t i = 1; i < words.size(); ++i)
        text += (i + 1 < words.size() ? ", " : " and ") + words[i];
    return text;
}

}  // namespace

std::string FaultOfNcNames(const ZetString& pattern) {
    bool isOfPart = false;
    for (std::wstring_view rest = pattern.view(); !rest.empty();) {
        const NamePart part = TakePart(rest);
        if (part.text.find(L'{') != std::wstring_view::npos)
            return "a { has no } behind it";
        if (part.text.find(L'}') != std::wstring_view::npos)
            return "a } has no { before it";
        if (!part.hasValue)
            continue;
        const std::string name = ZetString(part.name).toUtf8();
        const NameRow* const row = FindName(part.name);
        if (row == nullptr)
            return "there is no value {" + name + "}, only " + Listed(KnownNames()) +
                   Suggest(name, KnownNames());
        isOfPart = isOfPart || row->isOfPart;
    }
    if (pattern.view().find_first_of(L"/\\") != std::wstring_view::npos)
        return "the files have one folder, which \"folder\" names";
    if (!isOfPart)
        return "it needs {mark}, {file_name} or {drawing}: members would have one file";
    constexpr const wchar_t* kAny = L"q";
    return FaultOfFileName(FillNcName(pattern, {kAny, kAny, kAny, kAny, kAny, kAny, kAny}));
}

ZetString FillNcName(const ZetString& pattern, const NcNameValues& values) {
    ZetString name;
    for (std::wstring_view rest = pattern.view(); !rest.empty();) {
        const NamePart part = TakePart(rest);
        name += ZetString(part.text);
        if (part.hasValue)
            name += values.*FindName(part.name)->value;
    }
    return name;
}

}  // namespace job
