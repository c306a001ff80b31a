#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Whole numbers of a text, whatever stands between them.
class Numbers {
  public:
    Numbers(const std::uint8_t* data, std::size_t size)
        : m_text(reinterpret_cast<const char*>(data), size) {}

    /// Whether there is a next one; skips what is none.
    bool HasNext() {
        while (!m_text.empty() && !IsDigit(m_text[0]) &&
               !(m_text[0] == '-' && m_text.size() > 1 && IsDigit(m_text[1])))
            m_text.remove_prefix(1);
        return !m_text.empty();
    }

    /// The next one; 0 when there is none or it is too large.
    std::int64_t Next() {
        std::int64_t value = 0;
        if (!HasNext())
            return value;
        const auto end = std::from_chars(m_text.data(), m_text.data() + m_text.size(), value).ptr;
        m_text.remove_prefix(static_cast<std::size_t>(end - m_text.data()));
        return value;
    }

    /// The next one, folded into this range.
    std::int64_t Next(std::int64_t least, std::int64_t most) {
        const std::int64_t span = most - least + 1;
        return least + (Next() % span - least % span + 2 * span) % span;
    }

  private:
    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

    std::string_view m_text;
};
