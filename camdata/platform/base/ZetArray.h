#pragma once

#include "camdata/platform/base/ZetAssert.h"

#include <algorithm>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

/// The growable array of the library: copied by value, indexed from 0 with `long`.
///
/// An index outside the array fails the assertion "isValid( index )", a negative length "len>=0",
/// the first or last element of an empty array "!isEmpty()"; no memory is touched then.
/// It grows to a multiple of the grow step, and by at least half, so that appending n elements
/// costs O(n) moves. Any operation that changes the length ends the life of references and
/// iterators.
template <typename T>
class ZetArray {
    static_assert(!std::is_same_v<T, bool>, "packed bits have no references: use char or int");

  public:
    static constexpr long kGrowStep = 8;

    ZetArray() = default;
    ZetArray(std::initializer_list<T> values) : m_items(values) {}
    /// The values of a range, in order.
    template <typename Iterator>
    requires(!std::is_integral_v<Iterator>) ZetArray(Iterator first, Iterator last)
        : m_items(first, last) {}

    long length() const { return static_cast<long>(m_items.size()); }
    bool isEmpty() const { return m_items.empty(); }
    bool isValid(long index) const { return index >= 0 && index < length(); }

    T& operator[](long index) { return m_items[Checked(index)]; }
    const T& operator[](long index) const { return m_items[Checked(index)]; }
    T& first() { return m_items[CheckedFirst()]; }
    const T& first() const { return m_items[CheckedFirst()]; }
    T& last() { return m_items[CheckedLast()]; }
    const T& last() const { return m_items[CheckedLast()]; }

    /// Adds one element at the end. The value may be an element of this array.
    void append(T value) {
        Grow(m_items.size() + 1);
        m_items.push_back(std::move(value));
    }
    /// Adds copies of all elements of `other` (which may be this array) at the end, in order.
    void appendAll(const ZetArray& other) {
        const std::size_t count = other.m_items.size();
        Grow(m_items.size() + count);
        for (std::size_t i = 0; i < count; ++i)
            m_items.push_back(other.m_items[i]);
    }
    /// Puts `value` before the element at `index`; `index` may equal the length.
    void insertAt(long index, T value) {
        ZET_ASSERT(index == length() || isValid(index), "isValid( index )");
        Grow(m_items.size() + 1);
        m_items.insert(m_items.begin() + index, std::move(value));
    }
    void removeAt(long index) {
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(Checked(index)));
    }
    void removeAll() { m_items.clear(); }
    /// Cuts the array, or lengthens it by default-constructed elements.
    void setLength(long len) {
        ZET_ASSERT(len >= 0, "len>=0");
        Grow(static_cast<std::size_t>(len));
        m_items.resize(static_cast<std::size_t>(len));
    }
    /// Makes room for `len` elements without changing the length.
    void reserve(long len) {
        ZET_ASSERT(len >= 0, "len>=0");
        m_items.reserve(RoundedUp(static_cast<std::size_t>(len)));
    }
    /// Index of the first element equal to `value`, -1 when there is none.
    long find(const T& value) const {
        const auto at = std::find(m_items.begin(), m_items.end(), value);
        return at == m_items.end() ? -1 : static_cast<long>(at - m_items.begin());
    }

    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

    friend bool operator==(const ZetArray& a, const ZetArray& b) { return a.m_items == b.m_items; }

  private:
    static std::size_t RoundedUp(std::size_t count) {
        return (count + kGrowStep - 1) / kGrowStep * kGrowStep;
    }
    std::size_t Checked(long index) const {
        ZET_ASSERT(isValid(index), "isValid( index )");
        return static_cast<std::size_t>(index);
    }
    std::size_t CheckedFirst() const {
        ZET_ASSERT(!isEmpty(), "!isEmpty()");
        return 0;
    }
    std::size_t CheckedLast() const {
        ZET_ASSERT(!isEmpty(), "!isEmpty()");
        return m_items.size() - 1;
    }
    void Grow(std::size_t needed) {
        if (needed > m_items.capacity())
            m_items.reserve(
                RoundedUp(std::max(needed, m_items.capacity() + m_items.capacity() / 2)));
    }

    std::vector<T> m_items;
};
