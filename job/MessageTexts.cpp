#include "job/MessageTexts.h"

#include "camdata/platform/text/ZetString.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace job {

namespace {

/// The number of characters to change, to put in or to leave out (Levenshtein).
std::size_t DistanceBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string ShowNumber(double value) {
    return ZetString::format(L"%.10g", value).toUtf8();
}

std::string Suggest(std::string_view word, const std::vector<std::string>& words) {
    if (words.empty())
        return "";
    const auto nearest =
        std::min_element(words.begin(), words.end(), [&](const auto& a, const auto& b) {
            return DistanceBetween(word, a) < DistanceBetween(word, b);
        });
    const std::size_t mostChanges = std::max<std::size_t>(1, nearest->size() / 3);
    if (DistanceBetween(word, *nearest) > mostChanges)
        return "";
    return "; did you mean " + Quoted(*nearest) + "?";
}

}  // namespace job
