#include "camjob/host/HostedParts.h"

#include "camjob/check/CheckInput.h"
#include "camjob/console/Paths.h"
#include "camjob/console/ReportText.h"
#include "camjob/console/ShownText.h"
#include "camjob/console/TextTable.h"
#include "camjob/input/JobReading.h"
#include "dstv/NcAssemblies.h"
#include "dstv/NcReader.h"

#include <utility>
#include <variant>

namespace camjob {

HostedParts::HostedParts(const std::vector<std::string>& files,
                         const job::Job& job,
                         OutputStream& err) {
    for (const std::string& file : files)
        Read(file, job, err);
    Attach(job, err);
}

void HostedParts::Read(const std::string& file, const job::Job& job, OutputStream& err) {
    auto entity = ReadEntity(file, job);
    if (const auto* error = std::get_if<dstv::NcError>(&entity)) {
        WriteError(*error, err);
        m_areWhole = false;
        return;
    }
    m_parts.push_back(std::get<dstv::NcFileEntity>(std::move(entity)));
    m_entities.push_back(&m_parts.back());
    for (const dstv::NcNote& note : m_parts.back().getPart().notes)
        if (note.severity == dstv::NcNote::Severity::kWarning)
            WriteLine(err,
                      ZetString::format(
                          L"%s:%d: warning: %s", ZetString::fromUtf8(file), note.line, note.text));
}

/// A part that no file has is left out: who debugs a plug-in may be content with some files of a
/// job.
void HostedParts::Attach(const job::Job& job, OutputStream& err) {
    dstv::NcAssemblies assemblies(AssembliesOf(job));
    for (dstv::NcFileEntity& part : m_parts)
        assemblies.add(part);
    for (dstv::NcFileEntity& part : m_parts) {
        const ZetString& mark = part.getPart().header.mark;
        if (!assemblies.isMainPart(mark))
            continue;
        assemblies.attach(part);
        if (!assemblies.isComplete(mark))
            WriteLine(err,
                      ZetString::format(L"camjob: main part \"%s\": no file has some of the parts "
                                        L"of its assembly",
                                        mark));
    }
}

ZetString HostedParts::Describe() const {
    using enum TextTable::Align;
    TextTable table({
        {L"part",     kLeft },
        {L"profile",  kLeft },
        {L"length",   kRight},
        {L"quantity", kRight},
        {L"attached", kRight},
        {L"file",     kLeft }
    });
    for (const dstv::NcFileEntity& part : m_parts) {
        const dstv::NcHeader& header = part.getPart().header;
        table.AddRow(
            {header.mark,
             header.profileName,
             Number(header.length),
             ZetString::format(L"%d", header.quantity),
             ZetString::format(L"%d", part.getAttachedEntities().length()),
             OneLine(dstv::PathText(PathFromUtf8(part.getPart().file.toUtf8()).filename()))});
    }
    return table.Format();
}

}  // namespace camjob
