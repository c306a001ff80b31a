#include "camjob/console/Colour.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace camjob {

namespace {

/// By Tone. They are no characters; a file that holds one can colour its own text, no more.
constexpr std::array<wchar_t, 3> kToneMarks = {0xFDD0, 0xFDD1, 0xFDD2};

}  // namespace

ZetString Toned(const ZetString& text, Tone tone, bool hasColour) {
    if (!hasColour || tone == Tone::kPlain)
        return text;
    return ZetString(kToneMarks[static_cast<std::size_t>(tone)], 1) + text +
           ZetString(kToneMarks[0], 1);
}

bool IsToneMark(wchar_t c) {
    return std::find(kToneMarks.begin(), kToneMarks.end(), c) != kToneMarks.end();
}

std::string Coloured(std::string text) {
    // By Tone.
    constexpr std::array kColours = {"\x1b[0m", "\x1b[33m", "\x1b[31m"};
    for (std::size_t i = 0; i < kColours.size(); ++i) {
        const std::string mark = ZetString(kToneMarks[i], 1).toUtf8();
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos;)
            text.replace(at, mark.size(), kColours[i]);
    }
    return text;
}

bool WantsColour() {
    const char* const refusal = std::getenv("NO_COLOR");
    return refusal == nullptr || *refusal == '\0';
}

}  // namespace camjob
