#include "job/JobMaker.h"
#include "job/MessageTexts.h"

#include <algorithm>

namespace job {

void JobMaker::TakeAssemblies() {
    JobIds mains("[[assembly]]");
    for (const AssemblyTable& table : m_document.assemblies)
        mains.Add(table.main, m_faults);
    for (const AssemblyTable& table : m_document.assemblies) {
        Assembly& assembly = m_job.assemblies.emplace_back();
        assembly.mark = table.main.text;
        assembly.line = table.main.at.line;
        assembly.column = table.main.at.column;
        for (std::size_t i = 0; i < table.parts.size(); ++i) {
            CheckPart(table, i, mains);
            const PlacedText& mark = table.parts[i].mark;
            assembly.parts.push_back(
                {mark.text, table.parts[i].count, mark.at.line, mark.at.column});
        }
    }
}

void JobMaker::CheckPart(const AssemblyTable& assembly, std::size_t part, const JobIds& mains) {
    const PlacedText& mark = assembly.parts[part].mark;
    if (mark.text.isEmpty())
        return;
    Require(mains.PositionOf(mark.text) == m_document.assemblies.size(),
            mark.at,
            Quoted(mark.text) + " is a main part: it cannot be a part of an assembly");
    const auto isSame = [&](const AssemblyPartTable& other) {
        return other.mark.text == mark.text;
    };
    const auto end = assembly.parts.begin() + static_cast<std::ptrdiff_t>(part);
    Require(std::none_of(assembly.parts.begin(), end, isSame),
            mark.at,
            Quoted(mark.text) + " stands a second time in this assembly: give its \"count\"");
}

}  // namespace job
