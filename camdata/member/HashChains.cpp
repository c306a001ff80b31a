#include "camdata/member/HashChains.h"

namespace camdata::detail {

void HashChains::Add(std::uint64_t hash, long value) {
    m_entries.push_back({hash, value, kEnd});
    if (m_entries.size() > m_heads.size())
        Grow();
    else
        Link(static_cast<long>(m_entries.size()) - 1);
}

void HashChains::Link(long index) {
    Entry& entry = m_entries[static_cast<std::size_t>(index)];
    long& head = m_heads[SlotOf(entry.hash)];
    entry.next = head;
    head = index;
}

void HashChains::Grow() {
    if (!m_heads.empty())
        --m_shift;
    m_heads.assign(std::size_t{1} << (64 - m_shift), kEnd);
    for (long i = 0; i < static_cast<long>(m_entries.size()); ++i)
        Link(i);
}

}  // namespace camdata::detail
