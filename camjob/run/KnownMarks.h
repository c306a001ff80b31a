#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace camjob {

/// Marks of parts, and which of them is whose.
///
/// Of very many the next one is looked for in one place of far memory mostly: in a table of
/// positions, each with half of the hash of its mark. A map has a chain of nodes there.
class KnownMarks {
  public:
    /// `most`: no more are added, for each needs a place.
    explicit KnownMarks(std::size_t most);

    /// Adds the mark of the next part. The position of the part that has it already, from 0 and in
    /// the order in which they were added; nothing when there is none.
    std::optional<std::size_t> Add(std::string_view mark);
    /// In that order.
    std::vector<std::string> GetAll() const;

  private:
    /// All 0: no mark.
    struct Place {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;  ///< of its part, from 1
    };

    std::string_view MarkAt(std::size_t position) const;

    std::vector<Place> m_places;  ///< a power of two
    std::string m_texts;          ///< one behind the other
    std::vector<std::size_t> m_ends;
};

}  // namespace camjob
