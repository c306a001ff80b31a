#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plugin {

/// Texts that are let go of sooner or later. They lie in large blocks, each of which goes with its
/// last text, so that the memory of a hundred thousand comes back in large pieces, not as holes
/// between what stays.
class TextBlocks {
  public:
    /// One of them, until it is dropped.
    class Place {
      public:
        std::string_view View() const { return m_text; }

      private:
        friend TextBlocks;

        std::size_t m_block = 0;
        std::string_view m_text;
    };

    /// Keeps a copy.
    Place Add(std::string_view text);
    /// Lets go of it; once.
    void Drop(const Place& place);

  private:
    struct Block {
        std::string text;  ///< never longer than what was reserved for it
        std::size_t held = 0;
    };

    void AddBlock(std::size_t least);

    std::vector<Block> m_blocks;
};

}  // namespace plugin
