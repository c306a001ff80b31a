#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plugin {

/// Texts that are let go of together. They lie in large blocks, so that the memory of a hundred
/// thousand comes back in one piece, not as holes between what stays.
class TextBlocks {
  public:
    /// Keeps a copy, as it is until Clear.
    std::string_view Add(std::string_view text);
    void Clear() { m_blocks = std::vector<std::string>(); }

  private:
    void AddBlock(std::size_t least);

    std::vector<std::string> m_blocks;  ///< none grows beyond what was reserved for it
};

}  // namespace plugin
