#pragma once

#include "numbers/FixedDecimals.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace numbers {

/// A word of ASCII characters that is known beforehand, at most kMost of them. It is copied as a
/// whole, whatever its length.
class Word {
  public:
    static constexpr std::size_t kMost = 24;

    template <typename Character>
    constexpr explicit Word(std::basic_string_view<Character> text) : m_size(text.size()) {
        for (std::size_t i = 0; i < text.size(); ++i)
            m_text.at(i) = static_cast<char>(text[i]);
    }
    constexpr Word(const char* text) : Word(std::string_view(text)) {}

    constexpr std::string_view View() const { return {m_text.data(), m_size}; }

  private:
    friend class TextBuffer;

    std::array<char, kMost> m_text{};
    std::size_t m_size;
};

/// A text that is put together from many short pieces and numbers. It has room for more than it
/// holds, so that most pieces are a copy and nothing else.
class TextBuffer {
  public:
    /// `usual`: characters that there is room for at once.
    explicit TextBuffer(std::size_t usual)
        : m_text(std::make_unique_for_overwrite<char[]>(usual)),
          m_at(m_text.get()),
          m_end(m_at + usual) {}
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    void Add(char character) {
        *Room(1) = character;
        ++m_at;
    }
    void Add(std::string_view text) {
        m_at = std::copy(text.begin(), text.end(), Room(text.size()));
    }
    void AddWord(const Word& word) {
        std::memcpy(Room(Word::kMost), word.m_text.data(), Word::kMost);
        m_at += word.m_size;
    }
    /// ASCII characters of a wide text, as far as all of them pass the test. Whether they did; when
    /// not, nothing is added.
    template <typename Test>
    bool AddAscii(std::wstring_view text, Test standsAsItIs) {
        char* at = Room(text.size());
        for (const wchar_t c : text) {
            if (!standsAsItIs(c))
                return false;
            *at++ = static_cast<char>(c);
        }
        m_at = at;
        return true;
    }
    /// As numbers::AppendFixed.
    void AddFixed(double value, int decimals) {
        if (char* const end = PrintShort(Room(kRoomOfShort), value, decimals))
            m_at = end;
        else
            AddLong(value, decimals);
    }
    /// A number of units of which 10^decimals are one.
    void AddUnits(std::int64_t value, int decimals) {
        if (char* const end = PrintShortUnits(Room(kRoomOfShort), value, decimals))
            m_at = end;
        else
            AddLongUnits(value, decimals);
    }
    void AddWhole(std::int64_t value) { AddUnits(value, 0); }
    void AddBlanks(std::size_t count) {
        std::memset(Room(count), ' ', count);
        m_at += count;
    }
    /// Puts blanks before what was added from `begin` on, so that it has a width at least; each
    /// byte of it is a character.
    void AlignRight(std::size_t begin, std::size_t width);

    std::size_t GetSize() const { return static_cast<std::size_t>(m_at - m_text.get()); }
    std::string_view View() const { return {m_text.get(), GetSize()}; }
    void Clear() { m_at = m_text.get(); }

  private:
    /// Where the text goes on, with room for so many characters.
    char* Room(std::size_t count) {
        if (static_cast<std::size_t>(m_end - m_at) < count)
            Grow(count);
        return m_at;
    }
    void Grow(std::size_t least);
    void AddLong(double value, int decimals);
    void AddLongUnits(std::int64_t value, int decimals);

    std::unique_ptr<char[]> m_text;
    char* m_at;   ///< in it, where the text goes on
    char* m_end;  ///< of it
};

}  // namespace numbers
