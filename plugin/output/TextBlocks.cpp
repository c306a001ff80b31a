#include "plugin/output/TextBlocks.h"

#include "plugin/output/LargePages.h"

#include <algorithm>
#include <cstddef>

namespace plugin {

namespace {

/// Each block is twice the one before: small jobs take little, and the large blocks of large jobs
/// are what allocators have from the system and give back to it.
constexpr std::size_t kFirstBlock = std::size_t{1} << 20;
constexpr std::size_t kDoublings = 6;

}  // namespace

void TextBlocks::AddBlock(std::size_t least) {
    const std::size_t usual = kFirstBlock << std::min(m_blocks.size(), kDoublings);
    std::string& text = m_blocks.emplace_back().text;
    text.reserve(std::max(usual, least));
    WishForLargePages(text.data(), text.capacity());
}

TextBlocks::Place TextBlocks::Add(std::string_view text) {
    if (m_blocks.empty() ||
        m_blocks.back().text.capacity() - m_blocks.back().text.size() < text.size())
        AddBlock(text.size());
    Block& block = m_blocks.back();
    Place place;
    place.m_block = m_blocks.size() - 1;
    const std::size_t begin = block.text.size();
    block.text += text;
    place.m_text = std::string_view(block.text).substr(begin);
    ++block.held;
    return place;
}

void TextBlocks::Drop(const Place& place) {
    Block& block = m_blocks[place.m_block];
    // An assignment would keep the memory.
    if (--block.held == 0)
        std::string().swap(block.text);
}

}  // namespace plugin
