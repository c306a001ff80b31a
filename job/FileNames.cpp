#include "job/FileNames.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace job {

namespace {

/// Capital letters from `first` to `last`, each `step` behind the one before.
struct CapitalLetters {
    wchar_t first;
    wchar_t last;
    int step;
    int toSmall;
};

/// File names that differ only by these are one file on Windows.
constexpr CapitalLetters kCapitals[] = {
    {L'A',      L'Z',      1, 32}, // Latin
    {L'\u00C0', L'\u00DE', 1, 32},
    {L'\u0100', L'\u0136', 2, 1 },
    {L'\u0139', L'\u0147', 2, 1 },
    {L'\u014A', L'\u0176', 2, 1 },
    {L'\u0391', L'\u03A9', 1, 32}, // Greek
    {L'\u0400', L'\u040F', 1, 80}, // Cyrillic
    {L'\u0410', L'\u042F', 1, 32},
};

wchar_t SmallLetter(wchar_t c) {
    for (const CapitalLetters& row : kCapitals)
        if (c >= row.first && c <= row.last && (c - row.first) % row.step == 0)
            return static_cast<wchar_t>(c + row.toSmall);
    return c;
}

constexpr std::wstring_view kNoFileNameCharacters = L"<>:\"/\\|?*";

/// Names that Windows keeps for devices, also with an ending.
constexpr std::wstring_view kDevices[] = {
    L"con",  L"prn",  L"aux",  L"nul",  L"com1", L"com2", L"com3", L"com4",
    L"com5", L"com6", L"com7", L"com8", L"com9", L"lpt1", L"lpt2", L"lpt3",
    L"lpt4", L"lpt5", L"lpt6", L"lpt7", L"lpt8", L"lpt9",
};

}  // namespace

std::wstring SmallLetters(const ZetString& text) {
    std::wstring small(text.view());
    std::transform(small.begin(), small.end(), small.begin(), SmallLetter);
    return small;
}

std::string FaultOfFileName(const ZetString& name) {
    const std::wstring small = SmallLetters(name);
    if (small.find_first_of(kNoFileNameCharacters) != std::wstring::npos)
        return "a file's name cannot have any of < > : \" / \\ | ? *";
    if (std::any_of(small.begin(), small.end(), [](wchar_t c) {
            return camdata::detail::IsControl(c) || camdata::detail::IsLayoutControl(c);
        }))
        return "a file's name cannot have control characters";
    if (small.empty() || small.ends_with(L'.') || small.ends_with(L' '))
        return "a file's name cannot be empty nor end with a dot or a blank";
    const std::wstring stem = small.substr(0, small.find(L'.'));
    if (std::find(std::begin(kDevices), std::end(kDevices), stem) != std::end(kDevices))
        return "Windows keeps this name for a device";
    return "";
}

}  // namespace job
