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

constexpr std::size_t kMaxBytes = 255;

constexpr std::wstring_view kNoFileNameCharacters = L"<>:\"/\\|?*";

/// Names that Windows keeps for devices, also with an ending.
constexpr std::wstring_view kDevices[] = {
    L"con",
    L"conin$",
    L"conout$",
    L"prn",
    L"aux",
    L"nul",
};
/// The same with a digit behind them, also one that is written high.
constexpr std::wstring_view kNumberedDevices[] = {L"com", L"lpt"};
constexpr std::wstring_view kDeviceDigits = L"123456789\u00B9\u00B2\u00B3";

bool IsDevice(std::wstring_view stem) {
    const auto isName = [&](std::wstring_view device) { return device == stem; };
    if (std::any_of(std::begin(kDevices), std::end(kDevices), isName))
        return true;
    if (stem.empty() || kDeviceDigits.find(stem.back()) == std::wstring_view::npos)
        return false;
    stem.remove_suffix(1);
    return std::any_of(std::begin(kNumberedDevices), std::end(kNumberedDevices), isName);
}

}  // namespace

std::wstring SmallLetters(const ZetString& text) {
    std::wstring small(text.view());
    std::transform(small.begin(), small.end(), small.begin(), SmallLetter);
    return small;
}

std::vector<OutputEnding> OutputEndings(const Job& job) {
    // By position; the files of the job's own have their ids.
    constexpr const wchar_t* kLabels[] = {
        L"Orders", L"Additional information", L"Errors", L"Warnings"};
    static_assert(std::size(kLabels) == kFirstOwnFile);
    std::vector<OutputEnding> endings;
    for (std::size_t i = 0; i < job.files.size(); ++i)
        if (!job.files[i].nc)
            endings.push_back(
                {job.files[i].ending, i < kFirstOwnFile ? ZetString(kLabels[i]) : job.files[i].id});
    const auto isNested = [](const Group& group) { return group.isNested; };
    if (std::any_of(job.groups.begin(), job.groups.end(), isNested)) {
        endings.push_back({kCuttingListEnding, L"Cutting list"});
        endings.push_back({kCuttingTableEnding, L"Cutting table"});
    }
    if (!job.cutting.remnants.empty())
        endings.push_back({kRemnantsEnding, L"Remnants"});
    if (job.reports.hasRunDocument)
        endings.push_back({kRunDocumentEnding, L"Run for programs"});
    if (job.reports.hasPage)
        endings.push_back({kPageEnding, L"Report page"});
    return endings;
}

ZetString SettingsOriginFile(const ProjectData& project) {
    const std::wstring_view name = project.settingsFile;
    // An ending has to follow something: ".txt" is a name as a whole.
    const std::size_t dot = name.rfind(L'.');
    return ZetString(name.substr(0, dot == 0 ? name.size() : dot)) + L"-job.json";
}

std::string FaultOfFileName(const ZetString& name) {
    const std::wstring small = SmallLetters(name);
    if (small.find_first_of(kNoFileNameCharacters) != std::wstring::npos)
        return "a file's name cannot have any of < > : \" / \\ | ? *";
    if (std::any_of(small.begin(), small.end(), [](wchar_t c) {
            return camdata::detail::IsControl(c) || camdata::detail::IsLayoutControl(c);
        }))
        return "a file's name cannot have control characters";
    if (name.toUtf8().size() > kMaxBytes)
        return "a file's name cannot have more than 255 bytes";
    if (small.empty() || small.ends_with(L'.') || small.ends_with(L' '))
        return "a file's name cannot be empty nor end with a dot or a blank";
    // Blanks before the ending do not count.
    std::wstring_view stem = std::wstring_view(small).substr(0, small.find(L'.'));
    stem = stem.substr(0, stem.find_last_not_of(L' ') + 1);
    if (IsDevice(stem))
        return "Windows keeps this name for a device";
    return "";
}

}  // namespace job
