#include "dstv/NcHeaderShift.h"

#include "dstv/NcHeaderReader.h"
#include "dstv/NcText.h"

#include <algorithm>

namespace dstv {
namespace {

constexpr std::size_t kQuantityAt = 5;
constexpr std::size_t kCodeAt = 7;
/// So far from its place the profile code is looked for, lines.
constexpr std::size_t kMaxShift = 3;

/// A length, or two with a comma.
bool IsLength(const NcLine& line) {
    const std::string_view text = Trimmed(line.text);
    return ParseNumber(Trimmed(text.substr(0, text.find(','))), false).has_value();
}

/// The profile code is the one header text that can be told by itself, and a length follows it.
bool IsCode(const std::vector<NcLine>& lines, std::size_t at) {
    return at + 1 < lines.size() && IsProfileCode(Trimmed(lines[at].text)) &&
           IsLength(lines[at + 1]);
}

/// The place of the profile code; where it belongs when it is found nowhere.
std::size_t FindCode(const std::vector<NcLine>& lines) {
    for (std::size_t shift = 0; shift <= kMaxShift; ++shift)
        for (const std::size_t at : {kCodeAt - shift, kCodeAt + shift})
            if (IsCode(lines, at))
                return at;
    return kCodeAt;
}

bool IsNumber(const NcLine& line) {
    return ParseNumber(Trimmed(line.text), true).has_value();
}

/// With the code in its place, or none: the quantity stands in the line before, or the numbers end
/// too early.
bool IsLineMissing(const std::vector<NcLine>& lines, std::size_t value) {
    if (value == kQuantityAt)
        return IsNumber(lines[kQuantityAt - 1]);
    return value + kMaxShift >= NcHeaderReader::kRequired &&
           std::none_of(lines.begin() + static_cast<std::ptrdiff_t>(value), lines.end(), IsNumber);
}

}  // namespace

ZetString HintOfShiftedHeader(const std::vector<NcLine>& lines, std::size_t value) {
    const std::size_t code = FindCode(lines);
    // Nothing shows whether a text is in its place.
    if (value >= std::min(lines.size(), NcHeaderReader::kRequired))
        return {};
    if (code == kCodeAt)
        return IsLineMissing(lines, value) ? L"; a header line before it seems to be missing" : L"";
    const wchar_t* const what = code < kCodeAt
                                    ? L"a header line before it seems to be missing"
                                    : L"there seems to be a header line too many before it";
    return ZetString::format(L"; the profile code \"%s\" stands in line %d: %s",
                             Quotable(Trimmed(lines[code].text)),
                             lines[code].number,
                             what);
}

}  // namespace dstv
