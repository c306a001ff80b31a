#pragma once

#include "plugin/rules/JobMember.h"

#include "camdata/platform/text/ZetString.h"

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace plugin {

/// A part of a group with header lines of its own; of a group that is not split the whole.
struct GroupSection {
    std::size_t group = 0;  ///< position in Job::groups
    ZetString name;         ///< "Profile Z200x2.0"; "": the group is not split
    std::vector<ZetString> headerLines;
};

/// The sections of a run: of the groups in their order, within a group by what splits it. A group
/// without members has one, too.
class GroupSections {
  public:
    /// The job must outlive it.
    explicit GroupSections(const job::Job& job) : m_job(job), m_positions(job.groups.size()) {}

    void Add(const JobMember& member) {
        m_positions[member.GetGroupPosition()].try_emplace(KeyOf(member));
    }
    /// When all members are added; once.
    void Number();

    const std::vector<GroupSection>& GetSections() const { return m_sections; }
    std::size_t PositionOf(const JobMember& member) const {
        return m_positions[member.GetGroupPosition()].at(KeyOf(member));
    }

  private:
    /// A thickness, or a text.
    using Key = std::pair<double, ZetString>;

    Key KeyOf(const JobMember& member) const;

    const job::Job& m_job;
    std::vector<std::map<Key, std::size_t>> m_positions;  ///< by group
    std::vector<GroupSection> m_sections;
};

}  // namespace plugin
