#include "plugin/output/TextBlocks.h"

#include <algorithm>
#include <cstddef>

namespace plugin {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

}  // namespace

std::string_view TextBlocks::Add(std::string_view text) {
    if (m_blocks.empty() || m_blocks.back().capacity() - m_blocks.back().size() < text.size())
        m_blocks.emplace_back().reserve(std::max(kBlockBytes, text.size()));
    std::string& block = m_blocks.back();
    const std::size_t begin = block.size();
    block += text;
    return std::string_view(block).substr(begin);
}

}  // namespace plugin
