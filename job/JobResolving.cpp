#include "job/JobResolving.h"

#include "job/IsoDate.h"
#include "job/JobMaker.h"
#include "job/MemberLine.h"
#include "job/MessageTexts.h"
#include "job/ShadowedRules.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <utility>

namespace job {

Job JobMaker::Make() {
    TakeJob();
    TakeFiles();
    TakeGroups();
    TakeStocks();
    CheckFileNames();
    TakePatterns();
    TakeMemberTypes();
    TakeHoleRules();
    TakeCornerNotches();
    TakeTrims();
    TakeAssemblies();
    TakeInfo();
    CheckShadowed(m_document, m_faults);
    return std::move(m_job);
}

void JobMaker::TakeJob() {
    const JobTable& table = m_document.job;
    m_job.name = table.name;
    m_job.ncFiles = table.ncFiles;
    m_job.outputFolder = table.output.text.toUtf8();
    m_job.date = table.date;
    m_job.maximumQuantity = table.maximumQuantity;
    m_job.nc = m_document.nc;
    m_job.reports = m_document.reports;
    m_job.project = m_document.project;
    m_job.project.fileName = m_document.project.fileName.text;
    if (m_job.project.fileName.isEmpty())
        m_job.project.fileName = m_stem;
    m_job.project.settingsFile = m_document.project.settingsFile.text;
    TakeDates();
    TakeCommentMarker();
    m_job.tolerances = m_document.tolerances;
    m_job.areDistancesChecked = m_document.tolerances.areDistancesChecked;
    TakeUncovered();
    CheckPath("output", m_job.outputFolder, table.output.at);
    for (const NcFilePattern& pattern : table.ncFiles)
        CheckPath("nc_files", pattern.text, {pattern.line, pattern.column});
}

/// The dialog shows a day, and gives it back as the day that it is.
void JobMaker::TakeDates() {
    struct DateRow {
        const char* key;
        PlacedText ProjectTable::*from;
        ZetString ProjectData::*to;
    };
    constexpr DateRow kDates[] = {
        {"cold_rolled_order_date",
         &ProjectTable::coldRolledOrderDate,
         &ProjectData::coldRolledOrderDate                                                },
        {"revision_date",          &ProjectTable::revisionDate, &ProjectData::revisionDate},
        {"delivery_date",          &ProjectTable::deliveryDate, &ProjectData::deliveryDate},
    };
    for (const DateRow& row : kDates) {
        const PlacedText& text = m_document.project.*row.from;
        m_job.project.*row.to = text.text;
        Require(text.text.isEmpty() || ParseIsoDate(text.text),
                text.at,
                Quoted(row.key) + ": " + Quoted(text.text) +
                    " is no day from 1601-01-01 on that is written as 2026-03-31; without this key "
                    "it is the day of the run");
    }
}

/// Blanks follow it in the second line of comments and address.
void JobMaker::TakeCommentMarker() {
    const PlacedText& marker = m_document.project.commentMarker;
    m_job.project.commentMarker = marker.text;
    Require(!BeginsMember(marker.text + L" "),
            marker.at,
            "\"comment_marker\" must not begin with the word \"member\": members do");
}

/// A backslash parts folders on Windows only.
void JobMaker::CheckPath(const char* key, const std::string& path, Position at) {
    Require(path.find('\\') == std::string::npos,
            at,
            Quoted(key) + ": part folders with / on every system, not with \\");
    const ZetString text = ZetString::fromUtf8(path);
    Require(std::none_of(text.view().begin(), text.view().end(), camdata::detail::IsLayoutControl),
            at,
            Quoted(key) + ": the name of a file or folder cannot have control characters");
}

void JobMaker::TakeInfo() {
    const AdditionalInfoTable& table = m_document.additionalInfo;
    m_job.infoHeaders[kAllMembersBlock] = table.members;
    m_job.infoHeaders[kNonStandardBlock] = table.nonStandard;
    m_job.infoHeaders[kErrorsBlock] = table.errors;
    m_job.infoHeaders[kWarningsBlock] = table.warnings;
    m_job.infoOrder.assign(table.order.begin(), table.order.end());
    m_job.hasInfoTotals = table.hasTotals;
}

Job ResolveJob(const JobDocument& document,
               const std::filesystem::path& jobFile,
               JobFaults& faults) {
    return JobMaker(document, jobFile, faults).Make();
}

}  // namespace job
