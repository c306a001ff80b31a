#include "plugin/output/GroupSections.h"

#include "job/ControlCharacters.h"

namespace plugin {

namespace {

/// No header line of a section can be taken for a line of a member.
ZetString NameOf(job::GroupSplit split, double thickness, const ZetString& text) {
    switch (split) {
        case job::GroupSplit::kProfile:
            return L"Profile " + job::EscapeControls(text);
        case job::GroupSplit::kMaterial:
            return text.isEmpty() ? ZetString(L"Material not told")
                                  : L"Material " + job::EscapeControls(text);
        default:
            return ZetString::format(L"Thickness %.10g mm", thickness);
    }
}

}  // namespace

GroupSections::Key GroupSections::KeyOf(const JobMember& member) const {
    const std::optional<job::GroupSplit> split = m_job.groups[member.GetGroupPosition()].split;
    if (split == job::GroupSplit::kThickness)
        return {member.GetProfileThick(), {}};
    if (split == job::GroupSplit::kProfile)
        return {0.0, member.GetProfileName()};
    return {0.0, split ? member.GetMaterial() : ZetString()};
}

void GroupSections::Number() {
    for (std::size_t group = 0; group < m_positions.size(); ++group) {
        const job::Group& source = m_job.groups[group];
        if (m_positions[group].empty())
            m_sections.push_back({group, {}, source.headerLines});
        for (auto& [key, position] : m_positions[group]) {
            position = m_sections.size();
            GroupSection& section = m_sections.emplace_back();
            section = {group, {}, source.headerLines};
            if (!source.split)
                continue;
            section.name = NameOf(*source.split, key.first, key.second);
            section.headerLines.push_back(section.name);
        }
    }
}

}  // namespace plugin
