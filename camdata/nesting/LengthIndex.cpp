#include "camdata/nesting/LengthIndex.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace camdata::detail {
namespace {

/// Longer than any bar.
constexpr double kNeverFits = std::numeric_limits<double>::infinity();

double KeyOf(const CMxParts& part) {
    return std::isnan(part.GetLength()) ? kNeverFits : part.GetLength();
}

}  // namespace

LengthIndex::LengthIndex(const ZetArray<CMxParts>& parts)
    : m_leaves(std::bit_ceil(static_cast<std::size_t>(parts.length()))),
      m_shortest(2 * m_leaves, kNeverFits) {
    std::transform(parts.begin(),
                   parts.end(),
                   m_shortest.begin() + static_cast<std::ptrdiff_t>(m_leaves),
                   KeyOf);
    for (std::size_t node = m_leaves - 1; node >= kRoot; --node)
        m_shortest[node] = std::min(m_shortest[2 * node], m_shortest[2 * node + 1]);
}

void LengthIndex::Remove(long part) {
    std::size_t node = m_leaves + static_cast<std::size_t>(part);
    m_shortest[node] = kNeverFits;
    for (node /= 2; node >= kRoot; node /= 2)
        m_shortest[node] = std::min(m_shortest[2 * node], m_shortest[2 * node + 1]);
}

}  // namespace camdata::detail
