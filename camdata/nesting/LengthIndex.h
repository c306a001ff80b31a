#pragma once

#include "camdata/nesting/CMxParts.h"
#include "camdata/platform/base/ZetArray.h"

#include <cstddef>
#include <vector>

namespace camdata::detail {

/// The lengths of a list of parts: finds the next part that is short enough without a look at those
/// that are not.
///
/// A binary tree in one array, node n above 2n and 2n + 1, the parts as its leaves; each node holds
/// the smallest length below it.
class LengthIndex {
  public:
    explicit LengthIndex(const ZetArray<CMxParts>& parts);

    /// Takes a part out.
    void Remove(long part);

    /// The first part at or behind `part` whose length `fits`, -1 when there is none. What fits
    /// must fit when it is shorter; an endless length must not.
    template <typename Fits>
    long FindFrom(long part, const Fits& fits) const {
        if (static_cast<std::size_t>(part) >= m_leaves)
            return -1;
        std::size_t node = m_leaves + static_cast<std::size_t>(part);
        while (!fits(m_shortest[node])) {
            node = NextBehind(node);
            if (node == kNone)
                return -1;
        }
        while (node < m_leaves) {
            node *= 2;
            if (!fits(m_shortest[node]))
                ++node;
        }
        return static_cast<long>(node - m_leaves);
    }

  private:
    static constexpr std::size_t kNone = 0;
    static constexpr std::size_t kRoot = 1;

    /// The node above the leaves that follow those of `node`, as high up as it may be.
    static std::size_t NextBehind(std::size_t node) {
        const auto isRightChild = [](std::size_t n) { return n % 2 == 1; };
        while (isRightChild(node) && node != kRoot)
            node /= 2;
        return node == kRoot ? kNone : node + 1;
    }

    std::size_t m_leaves;
    std::vector<double> m_shortest;
};

}  // namespace camdata::detail
