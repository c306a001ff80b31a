#include "camjob/run/JobInput.h"

#include "camjob/console/Paths.h"
#include "camjob/console/ReportText.h"
#include "camjob/input/JobReading.h"
#include "job/JobFile.h"
#include "job/MessageTexts.h"

#include <algorithm>
#include <utility>

namespace camjob {

namespace {

/// What can tell parts instead.
ZetString OtherSources(job::MarkSource source) {
    std::vector<ZetString> words;
    for (const job::MarkSource each : job::kMarkSources)
        if (each != source)
            words.push_back(ZetString::fromUtf8(job::Quoted(job::NameOf(each))));
    return ZetString::format(L"; instead of %s, \"mark\" in [nc] of the job can be one of %s",
                             ZetString::fromUtf8(job::Quoted(job::NameOf(source))),
                             Joined(words, L", "));
}

}  // namespace

JobInput::JobInput(const job::Job& job,
                   plugin::JobRun& run,
                   std::size_t files,
                   MemberDrawings* drawings)
    : m_job(job),
      m_run(run),
      m_drawings(drawings),
      m_assemblies(AssembliesOf(job)),
      m_reading(job, run, m_assemblies, drawings != nullptr),
      m_ncFiles(job),
      m_marks(files) {
    m_memberFiles.reserve(files);
    m_memberAccounts.reserve(files);
    run.BeginJudging();
}

void JobInput::Take(ReadPart read) {
    const std::size_t position = m_position++;
    for (RunFault& fault : read.faults)
        ListFor(m_job.nc.unreadable).push_back({position, std::move(fault)});
    if (!read.faults.empty())
        return;
    ++m_counts.filesRead;
    Hold({std::move(read), position});
    while (!m_held.empty() && IsReady(m_held.front()))
        TakeFirst();
}

void JobInput::Finish() {
    while (!m_held.empty())
        TakeFirst();
    for (const ZetString& mark : m_assemblies.getMissingMarks())
        AddMissingPart(mark);
}

/// At the first place of the job file that names it.
void JobInput::AddMissingPart(const ZetString& mark) {
    job::JobError fault{m_job.file, 0, 0, {}};
    const auto look = [&](const ZetString& named, long line, long column) {
        if (fault.line == 0 && named == mark) {
            fault.line = line;
            fault.column = column;
        }
    };
    for (const job::Assembly& assembly : m_job.assemblies) {
        look(assembly.mark, assembly.line, assembly.column);
        for (const job::AssemblyPart& part : assembly.parts)
            look(part.mark, part.line, part.column);
    }
    std::vector<std::string> marks = m_marks.GetAll();
    std::sort(marks.begin(), marks.end());
    fault.text = "the assemblies name part " + job::Quoted(mark.toUtf8()) +
                 ", which no NC file has" + job::Suggest(mark.toUtf8(), marks) +
                 "; correct it, or add its file to \"nc_files\" in line " +
                 std::to_string(m_job.ncFiles.front().line);
    m_faults.push_back({
        m_position, {fault.file, fault.line, fault.column, job::DescribeJobError(fault)}
    });
}

std::vector<RunFault> JobInput::TakeFaults() {
    return InOrder(std::move(m_faults));
}

std::vector<RunFault> JobInput::TakeLeftOut() {
    return InOrder(std::move(m_leftOut));
}

std::vector<RunUnmadeFile> JobInput::TakeUnmadeFiles() {
    return InOrder(std::move(m_unmadeFiles));
}

/// Parts that waited were judged after files behind them were read.
template <typename T>
std::vector<T> JobInput::InOrder(std::vector<Placed<T>> list) {
    std::stable_sort(list.begin(), list.end(), [](const auto& a, const auto& b) {
        return a.position < b.position;
    });
    std::vector<T> values;
    for (Placed<T>& placed : list)
        values.push_back(std::move(placed.value));
    return values;
}

void JobInput::Hold(Part part) {
    for (const dstv::NcNote& note : part.notes)
        AddNote(part.position, part.file, note);
    if (part.entity != nullptr)
        m_assemblies.add(*part.entity);
    m_held.push_back(std::move(part));
}

void JobInput::AddNote(std::size_t position, const std::string& file, const dstv::NcNote& note) {
    const bool isWarning = note.severity == dstv::NcNote::Severity::kWarning;
    ++(isWarning ? m_counts.warnings : m_counts.notes);
    m_notes.push_back({file, note});
    if (isWarning && m_job.nc.warnings == job::NcWarnings::kRefuse)
        m_faults.push_back({
            position, {file, note.line, 0, DescribeRefusedNote(m_notes.back())}
        });
}

bool JobInput::IsReady(const Part& part) const {
    return !m_assemblies.isMainPart(part.mark) || m_assemblies.isComplete(part.mark);
}

void JobInput::TakeFirst() {
    Part part = std::move(m_held.front());
    m_held.pop_front();
    if (!part.judged) {
        m_assemblies.attach(*part.entity);
        part.judged = m_reading.Judge(*part.entity, part.file);
    }
    if (part.judged->result.GetAdded() == plugin::JobRun::Added::kAdded)
        AddMember(part);
    else
        AddOther(part);
    if (part.entity != nullptr)
        m_assemblyParts.push_back(std::move(part.entity));
}

void JobInput::AddOther(const Part& part) {
    if (part.judged->unmatched)
        ListFor(m_job.nc.unmatched).push_back({part.position, *part.judged->unmatched});
    else
        ++m_counts.skipped;
    m_unmadeFiles.push_back({
        part.position, {part.file, part.mark, part.judged->notMade}
    });
}

/// Pieces of one mark are one and the same to those who make and mount them.
void JobInput::AddMember(Part& part) {
    const job::MarkSource source = m_job.nc.mark;
    const long line = part.markLine;
    if (part.mark.isEmpty())
        AddFault(part, line, L"the part has no mark to tell it by" + OtherSources(source));
    if (const auto other = m_marks.Add(part.mark.toUtf8()))
        AddFault(part,
                 line,
                 ZetString::format(L"mark \"%s\" is already that of the part in %s",
                                   part.mark,
                                   ZetString::fromUtf8(m_memberFiles[*other].name)) +
                     OtherSources(source));
    JudgedPart& judged = *part.judged;
    if (judged.drawing)
        m_drawings->Add(*judged.drawing);
    for (const std::string& fault : m_ncFiles.Add(std::move(judged.ncFiles), part.file))
        AddFault(part, 0, ZetString::fromUtf8(fault));
    m_memberFiles.push_back({std::move(part.file), part.lines});
    m_memberAccounts.push_back(std::move(judged.accounts));
    m_run.Take(std::move(judged.result));
}

void JobInput::AddFault(const Part& part, long line, const ZetString& text) {
    m_faults.push_back({part.position, FaultAt(part.file, line, text)});
}

}  // namespace camjob
