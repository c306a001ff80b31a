#include "camjob/run/PartReading.h"

#include "camjob/console/Paths.h"
#include "camjob/input/JobReading.h"
#include "camjob/show/PartDrawing.h"

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

long CountNoted(const std::vector<dstv::NcEntry>& entries) {
    return static_cast<long>(std::count_if(
        entries.begin(), entries.end(), [](const dstv::NcEntry& entry) { return entry.isNoted; }));
}

}  // namespace

PartReading::PartReading(const job::Job& job,
                         const plugin::JobRun& run,
                         const dstv::NcAssemblies& assemblies,
                         bool areDrawingsTold)
    : m_job(job),
      m_reading(ReadingOf(job)),
      m_run(run),
      m_assemblies(assemblies),
      m_areDrawingsTold(areDrawingsTold) {}

ReadPart PartReading::Read(const std::filesystem::path& file) const {
    ReadPart part{Utf8FromPath(file)};
    dstv::NcResult result = ReadFileOfJob(file, m_reading);
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        part.faults = FaultsOfReading(*error);
        return part;
    }
    part.entity = std::make_unique<dstv::NcFileEntity>(std::get<dstv::NcPart>(std::move(result)));
    part.notes = part.entity->getPart().notes;
    // Its quantities are those of other files.
    if (!m_assemblies.isMainPart(part.entity->getPart().header.mark))
        part.judged = Judge(*part.entity, part.file);
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
        const plugin::Ledger& ledger = judged.result.GetLedger();
        judged.accounts = SettleAccounts(entries, ledger);
        // Whoever draws members tells their features.
        if (!m_areDrawingsTold)
            judged.accounts.features = std::vector<AccountedFeature>();
        judged.ncFiles =
            NcFiles::Make(m_job, entity.getPart(), ledger, judged.result.GetGroupPosition());
        judged.drawing = std::move(drawing);
    } else {
        judged.notMade = AllNotMade(entries);
    }
    entity.releaseFeatures();
    return judged;
}

}  // namespace camjob
