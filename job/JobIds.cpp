#include "job/JobIds.h"

#include "job/MessageTexts.h"

#include <algorithm>

namespace job {

void JobIds::Add(const PlacedText& id, JobFaults& faults) {
    const std::size_t position = PositionOf(id.text);
    if (position < m_ids.size())
        faults.Add(id.at, "the id " + Quoted(id.text) + " " + DescribeFirst(position));
    m_ids.push_back(id);
}

std::optional<std::size_t> JobIds::Find(const PlacedText& reference, JobFaults& faults) const {
    const std::size_t position = PositionOf(reference.text);
    if (position < m_ids.size())
        return position;
    if (reference.at.line > 0)
        faults.Add(reference.at,
                   "there is no " + m_table + " with the id " + Quoted(reference.text) +
                       Suggest(reference.text.toUtf8(), Names()));
    return std::nullopt;
}

std::size_t JobIds::PositionOf(const ZetString& id) const {
    const auto known = std::find_if(m_ids.begin(), m_ids.end(), [&](const PlacedText& row) {
        return row.text == id && !id.isEmpty();
    });
    return static_cast<std::size_t>(known - m_ids.begin());
}

std::string JobIds::DescribeFirst(std::size_t position) const {
    const long line = m_ids[position].at.line;
    if (line == 0)
        return "belongs to a " + m_table + " that is always there";
    return "stands a second time; first in line " + std::to_string(line);
}

std::vector<std::string> JobIds::Names() const {
    std::vector<std::string> names;
    for (const PlacedText& id : m_ids)
        if (!id.text.isEmpty())
            names.push_back(id.text.toUtf8());
    return names;
}

}  // namespace job
