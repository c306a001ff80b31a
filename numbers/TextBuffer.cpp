#include "numbers/TextBuffer.h"

#include <utility>

namespace numbers {

void TextBuffer::Grow(std::size_t least) {
    const std::size_t size = GetSize();
    const auto room = static_cast<std::size_t>(m_end - m_text.get());
    TextBuffer larger(std::max(2 * room, size + least));
    larger.Add(View());
    m_text = std::move(larger.m_text);
    m_at = larger.m_at;
    m_end = larger.m_end;
}

void TextBuffer::AlignRight(std::size_t begin, std::size_t width) {
    const std::size_t length = GetSize() - begin;
    if (length >= width)
        return;
    AddBlanks(width - length);
    char* const from = m_text.get() + begin;
    std::rotate(from, from + length, m_at);
}

void TextBuffer::AddLong(double value, int decimals) {
    std::string text;
    AppendFixed(text, value, decimals);
    Add(text);
}

void TextBuffer::AddLongUnits(std::int64_t value, int decimals) {
    std::string digits = std::to_string(value);
    digits.insert(digits.size() - static_cast<std::size_t>(decimals), decimals > 0 ? "." : "");
    Add(digits);
}

}  // namespace numbers
