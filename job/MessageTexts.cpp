#include "job/MessageTexts.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace job {

namespace {

/// Letters that make the beginning of a word tell it.
constexpr std::size_t kBegunLetters = 3;

/// The number of characters to change, to put in, to leave out or to swap with their neighbour.
std::size_t DistanceBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before;
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::vector<std::size_t> next(b.size() + 1, i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            next[j + 1] = std::min({row[j] + (a[i] == b[j] ? 0 : 1), next[j] + 1, row[j + 1] + 1});
            if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j])
                next[j + 1] = std::min(next[j + 1], before[j - 1] + 1);
        }
        before = std::exchange(row, std::move(next));
    }
    return row.back();
}

}  // namespace

std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string Quoted(const ZetString& text) {
    return Quoted(text.toUtf8());
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
    const auto begun = std::find_if(words.begin(), words.end(), [&](const std::string& each) {
        return word.size() >= kBegunLetters && each.starts_with(word);
    });
    if (DistanceBetween(word, *nearest) <= mostChanges)
        return "; did you mean " + Quoted(*nearest) + "?";
    return begun == words.end() ? "" : "; did you mean " + Quoted(*begun) + "?";
}

}  // namespace job
