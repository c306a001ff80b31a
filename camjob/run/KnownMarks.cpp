#include "camjob/run/KnownMarks.h"

#include <bit>
#include <functional>

namespace camjob {

KnownMarks::KnownMarks(std::size_t most) : m_places(std::bit_ceil(2 * most + 1)) {
    m_ends.reserve(most);
}

std::optional<std::size_t> KnownMarks::Add(std::string_view mark) {
    constexpr int kHalf = 32;
    const std::uint64_t hash = std::hash<std::string_view>()(mark);
    const auto half = static_cast<std::uint32_t>(hash >> kHalf);
    m_texts += mark;
    m_ends.push_back(m_texts.size());
    for (std::size_t at = hash;; ++at) {
        Place& place = m_places[at & (m_places.size() - 1)];
        if (place.number == 0) {
            place = {half, static_cast<std::uint32_t>(m_ends.size())};
            return std::nullopt;
        }
        if (place.hash == half && MarkAt(place.number - 1) == mark)
            return place.number - 1;
    }
}

std::vector<std::string> KnownMarks::GetAll() const {
    std::vector<std::string> marks;
    for (std::size_t position = 0; position < m_ends.size(); ++position)
        marks.emplace_back(MarkAt(position));
    return marks;
}

std::string_view KnownMarks::MarkAt(std::size_t position) const {
    const std::size_t begin = position == 0 ? 0 : m_ends[position - 1];
    return std::string_view(m_texts).substr(begin, m_ends[position] - begin);
}

}  // namespace camjob
