#include "job/FormatResolving.h"
#include "job/JobMaker.h"
#include "job/MessageTexts.h"

#include <algorithm>
#include <optional>

namespace job {

void JobMaker::TakeGroups() {
    m_groups.Preset(m_job.groups);
    TakeGroup(m_document.secondaryParts,
              {m_job.groups[kSecondaryGroup].id, {}},
              m_job.groups[kSecondaryGroup]);
    RequireHeaderFile(m_document.secondaryParts, m_job.groups[kSecondaryGroup]);
    for (const GroupTable& table : m_document.groups) {
        m_groups.Add(table.id, m_faults);
        Group& group = m_job.groups.emplace_back();
        TakeGroup(table, table.id, group);
        group.headerLines = table.header.value_or(std::vector<ZetString>{L"", table.id.text});
        CheckHeadings(table, group.headerLines);
        if (table.header)
            RequireHeaderFile(table, group);
        CheckPlan(table);
    }
}

void JobMaker::TakeGroup(const SecondaryPartsTable& table, const PlacedText& id, Group& group) {
    group = table;
    group.id = id.text;
    RequireOf(table, !table.files.empty(), "\"files\" must not be empty");
    CheckHeadings(table, table.headerLines);
    for (const PlacedText& reference : table.files)
        if (const std::optional<std::size_t> file = m_files.Find(reference, m_faults))
            TakeGroupFile(reference, *file, group);
    // NC files have no header lines, so none is the main file of others.
    std::stable_partition(group.files.begin(), group.files.end(), [&](std::size_t file) {
        return !m_job.files[file].nc;
    });
}

/// Header lines that the job gives have a file where they can stand.
void JobMaker::RequireHeaderFile(const SecondaryPartsTable& table, const Group& group) {
    const auto hasHeader = [&](std::size_t position) {
        const OutputFile& file = m_job.files[position];
        return file.format ? ShowsHeader(m_job.formats[*file.format],
                                         {FormatPart::kGroupStart, FormatPart::kGroupEnd})
                           : !file.nc;
    };
    Require(group.headerLines.empty() || group.files.empty() ||
                std::any_of(group.files.begin(), group.files.end(), hasHeader),
            table.PlaceOf("header"),
            "\"header\" stands in no file of the group: their formats have no {header} in a line "
            "for group_start or group_end");
}

void JobMaker::TakeGroupFile(const PlacedText& reference, std::size_t file, Group& group) {
    const auto& files = group.files;
    const std::string name = "the file " + Quoted(reference.text);
    Require(file == kOrderFile || file >= kFirstOwnFile,
            reference.at,
            name + " takes no members: only \"order\" and files of the job's own do");
    Require(std::find(files.begin(), files.end(), file) == files.end(),
            reference.at,
            name + " stands here a second time");
    group.files.push_back(file);
}

}  // namespace job
