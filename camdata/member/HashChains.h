#pragma once

#include <bit>
#include <cstdint>
#include <vector>

namespace camdata::detail {

/// Hash of a pair of numbers. Its high bits depend on every bit of them, so round doubles, whose
/// low bits are all zero, spread as well as others.
inline std::uint64_t HashOfPair(std::uint64_t a, std::uint64_t b) {
    return a * 0x9e3779b97f4a7c15u + b * 0xc2b2ae3d27d4eb4fu;
}

/// Hash of a position; equal for 0.0 and -0.0.
inline std::uint64_t HashOfPosition(double x, double y) {
    return HashOfPair(std::bit_cast<std::uint64_t>(x + 0.0), std::bit_cast<std::uint64_t>(y + 0.0));
}

/// Numbers filed under hashes. It only narrows a search: what is filed under one hash need not
/// agree in anything else.
class HashChains {
  public:
    void Add(std::uint64_t hash, long value);

    /// Calls `visit` with each number filed under `hash`.
    template <typename Visit>
    void ForEach(std::uint64_t hash, const Visit& visit) const {
        if (m_heads.empty())
            return;
        for (long at = m_heads[SlotOf(hash)]; at != kEnd;) {
            const Entry& entry = m_entries[static_cast<std::size_t>(at)];
            if (entry.hash == hash)
                visit(entry.value);
            at = entry.next;
        }
    }

  private:
    static constexpr long kEnd = -1;
    static constexpr int kFirstBits = 6;

    struct Entry {
        std::uint64_t hash;
        long value;
        long next;
    };

    std::size_t SlotOf(std::uint64_t hash) const { return hash >> m_shift; }
    void Link(long index);
    void Grow();

    std::vector<Entry> m_entries;
    /// First entry of each chain, by the high bits of the hash.
    std::vector<long> m_heads;
    int m_shift = 64 - kFirstBits;
};

}  // namespace camdata::detail
