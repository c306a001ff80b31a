#include "plugin/output/TextBlocks.h"

#include <algorithm>
#include <cstddef>

namespace plugin {

namespace {

/// Each block is twice the one before: small jobs take little, and the large blocks of large jobs
/// are what allocators have from the system and give back to it.
constexpr std::size_t kFirstBlock = std::size_t{1} << 20;
constexpr std::size_t kLargestBlock = std::size_t{1} << 26;

}  // namespace

void TextBlocks::AddBlock(std::size_t least) {
    const std::size_t usual = m_blocks.empty() ? kFirstBlock : 2 * m_blocks.back().capacity();
    m_blocks.emplace_back().reserve(std::max(std::min(usual, kLargestBlock), least));
}

std::string_view TextBlocks::Add(std::string_view text) {
    if (m_blocks.empty() || m_blocks.back().capacity() - m_blocks.back().size() < text.size())
        AddBlock(text.size());
    std::string& block = m_blocks.back();
    const std::size_t begin = block.size();
    block += text;
    return std::string_view(block).substr(begin);
}

}  // namespace plugin
