#pragma once

#include "job/JobDocument.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace job {

/// The ids of one kind of table, by position.
class JobIds {
  public:
    explicit JobIds(std::string table) : m_table(std::move(table)) {}

    /// Those that are there without the job file.
    template <typename Rows>
    void Preset(const Rows& rows) {
        for (const auto& row : rows)
            m_ids.push_back({row.id, {}});
    }
    void Add(const PlacedText& id, JobFaults& faults);
    /// The position of what a reference names; nothing, and told, when it points nowhere.
    std::optional<std::size_t> Find(const PlacedText& reference, JobFaults& faults) const;
    /// The number of ids when there is no such one; "" is none.
    std::size_t PositionOf(const ZetString& id) const;

  private:
    std::string DescribeFirst(std::size_t position) const;
    /// Those that can be meant: "" is none.
    std::vector<std::string> Names() const;

    std::string m_table;
    std::vector<PlacedText> m_ids;
};

}  // namespace job
