#include "plugin/rules/NegativeZeros.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace plugin {

namespace {

constexpr std::wstring_view kOfNumbers = L"0123456789.";

bool IsOfNumber(wchar_t c) {
    return kOfNumbers.find(c) != std::wstring_view::npos;
}

}  // namespace

ZetString WithoutNegativeZeros(const ZetString& text) {
    std::wstring result(text.view());
    for (std::size_t at = result.find(L"-0"); at != std::wstring::npos;
         at = result.find(L"-0", at + 1)) {
        const std::size_t end = std::min(result.find_first_not_of(L"0.", at + 1), result.size());
        const bool isZero = end == result.size() || !IsOfNumber(result[end]);
        const bool isSign = at == 0 || (!IsOfNumber(result[at - 1]) && result[at - 1] != L'-');
        if (isZero && isSign && result.find(L'.', at) < end)
            result.erase(at, 1);
    }
    return ZetString(std::move(result));
}

}  // namespace plugin
