#include "camjob/run/PartReading.h"

#include "camjob/input/JobReading.h"
#include "camjob/show/PartDrawing.h"
#include "job/JobFile.h"
#include "plugin/rules/MemberTypeSearch.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace camjob {

namespace {

RunFault FaultOfReading(const dstv::NcError& error) {
    return {error.file.toUtf8(), error.line, error.column, error.describe().toUtf8()};
}

std::vector<RunFault> FaultsOfReading(const dstv::NcError& error) {
    std::vector<RunFault> faults = {FaultOfReading(error)};
    for (const dstv::NcError& further : error.further)
        faults.push_back(FaultOfReading(further));
    return faults;
}

/// The line of the text that tells the part; 0: it is none of the file.
long LineOfMark(const dstv::NcHeader& header, job::MarkSource source) {
    switch (source) {
        case job::MarkSource::kMark:
            return header.lineOf(dstv::NcHeaderValue::kMark);
        case job::MarkSource::kDrawing:
            return header.lineOf(dstv::NcHeaderValue::kDrawing);
        case job::MarkSource::kPhase:
            return header.lineOf(dstv::NcHeaderValue::kPhase);
        default:
            return 0;
    }
}

long CountNoted(const std::vector<dstv::NcEntry>& entries) {
    return static_cast<long>(std::count_if(
        entries.begin(), entries.end(), [](const dstv::NcEntry& entry) { return entry.isNoted; }));
}

}  // namespace

RunFault FaultAt(const std::string& file, long line, const ZetString& text) {
    return {file, line, 0, job::DescribeJobError({file, line, 0, text.toUtf8()})};
}

PartReading::PartReading(const job::Job& job,
                         const plugin::JobRun& run,
                         const dstv::NcAssemblies& assemblies,
                         bool areDrawingsTold)
    : m_job(job),
      m_reading(ReadingOf(job)),
      m_run(run),
      m_assemblies(assemblies),
      m_areDrawingsTold(areDrawingsTold) {}

ReadPart PartReading::Read(const std::string& file) const {
    ReadPart part{file};
    dstv::NcResult result = ReadFileOfJob(file, m_reading);
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        part.faults = FaultsOfReading(*error);
        return part;
    }
    auto entity = std::make_unique<dstv::NcFileEntity>(std::get<dstv::NcPart>(std::move(result)));
    const dstv::NcHeader& header = entity->getPart().header;
    part.notes = entity->getPart().notes;
    part.mark = header.mark;
    part.markLine = LineOfMark(header, m_job.nc.mark);
    part.lines = HeaderPlacesOf(header);
    // Its quantities are those of other files.
    if (!m_assemblies.isMainPart(part.mark))
        part.judged = Judge(*entity, part.file);
    if (m_assemblies.names(part.mark))
        part.entity = std::move(entity);
    return part;
}

JudgedPart PartReading::Judge(dstv::NcFileEntity& entity, const std::string& file) const {
    const std::vector<dstv::NcEntry> entries = dstv::EntriesOf(entity.getPart());
    std::optional<MemberDrawings::Drawn> drawing;
    const auto draw = [&](const plugin::JobMember& member,
                          const job::MemberType& type,
                          const ZetNCCreator& creator) {
        if (m_areDrawingsTold)
            drawing.emplace(DrawingOf(entity, ReportOf(entity, creator, member, type)));
    };
    JudgedPart judged{m_run.Judge(entity, ZetString::fromUtf8(file), draw, CountNoted(entries))};
    if (judged.result.GetAdded() == plugin::JobRun::Added::kAdded) {
        const plugin::Ledger ledger = judged.result.TakeLedger();
        // Whoever draws members tells their features.
        judged.accounts = SettleAccounts(entries, ledger, m_areDrawingsTold);
        judged.ncFiles =
            NcFiles::Make(m_job, entity.getPart(), ledger, judged.result.GetGroupPosition());
        judged.drawing = std::move(drawing);
    } else {
        judged.notMade = AllNotMade(entries);
        if (judged.result.GetAdded() != plugin::JobRun::Added::kSkipped)
            judged.unmatched = FaultOfType(entity.getPart().header, file);
    }
    entity.releaseFeatures();
    return judged;
}

RunFault PartReading::FaultOfType(const dstv::NcHeader& header, const std::string& file) const {
    const ZetString text =
        ZetString::format(L"profile \"%s\", code %s: %s",
                          header.profileName,
                          header.profileCode,
                          plugin::WhyUnmatched(m_job, header.profileName, header.profileCode));
    return FaultAt(file, header.lineOf(dstv::NcHeaderValue::kProfileName), text);
}

}  // namespace camjob
