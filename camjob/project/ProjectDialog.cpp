#include "camjob/project/ProjectDialog.h"

#include "job/IsoDate.h"

#include "camdata/platform/system/Clock.h"
#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace camjob {

namespace {

constexpr int kTabs = 1002;
constexpr int kFirstOutputFile = 1501;
constexpr std::size_t kOutputRows = 6;

/// As the dialog has it, to find out whether the user touches it.
ProjectTexts StateOf(const DialogWindow& window) {
    ProjectTexts state;
    for (std::size_t i = 0; i < state.size(); ++i) {
        const ProjectValue& value = kProjectValues[i];
        state[i] = value.kind == ValueKind::kDate ? job::IsoDate(window.Date(value.control))
                                                  : window.Text(value.control);
    }
    return state;
}

std::vector<ZetString> LinesOf(const ZetString& text) {
    std::vector<ZetString> lines;
    long start = 0;
    for (long end = text.find(L"\r\n"); end >= 0; end = text.find(L"\r\n", start)) {
        lines.push_back(text.mid(start, end - start));
        start = end + 2;
    }
    lines.push_back(text.mid(start));
    return lines;
}

bool IsUnfit(wchar_t c) {
    return camdata::detail::IsControl(c) || camdata::detail::IsLayoutControl(c) || c == 0xFFFF;
}

std::string FaultOfLine(const ZetString& line) {
    if (line[0] == L'+')
        return "begins with \"+\", which the settings file takes for the start of another entry. "
               "Write something before it, such as a blank.";
    const std::wstring_view text = line;
    if (std::any_of(text.begin(), text.end(), IsUnfit))
        return "has a tab or another control character. Write a blank in its place.";
    return "";
}

/// Of a text that has to be saved, read back, and printed.
std::string FaultOfText(const ProjectValue& value, const ZetString& text) {
    const std::vector<ZetString> lines = LinesOf(text);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string fault = FaultOfLine(lines[i]);
        const std::string line =
            value.kind == ValueKind::kLines ? "line " + std::to_string(i + 1) : "the text";
        if (!fault.empty())
            return line + " " + fault;
    }
    // All entries together have to stay below the limit of the file.
    constexpr long kMost = CProjectInformation::kMaxSettingsLength / 5;
    return text.length() > kMost ? "the text is too long to be saved. Make it shorter." : "";
}

/// Those that the dialog has room for: the orders first, then the cutting list.
std::vector<job::OutputEnding> RowsOf(const job::Job& job) {
    std::vector<job::OutputEnding> rows = job::OutputEndings(job);
    const auto list = std::find_if(rows.begin(), rows.end(), [](const job::OutputEnding& row) {
        return row.ending == job::kCuttingListEnding;
    });
    if (list != rows.end())
        std::rotate(rows.begin() + 1, list, list + 1);
    // The dialog puts the first caption behind the file name to find out whether the file is there.
    rows.front().label = rows.front().ending;
    rows.resize(std::min(rows.size(), kOutputRows));
    return rows;
}

/// The dialog takes dates as the system writes them.
void ShowDates(CProjectInformation& project, const ProjectTexts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (kProjectValues[i].kind == ValueKind::kDate)
            (project.*kProjectValues[i].set)(FormatDate(*job::ParseIsoDate(texts[i])));
}

}  // namespace

ProjectDialog::ProjectDialog(const job::Job& job,
                             ProjectSettings& settings,
                             FileNameCheck findNameFault,
                             std::vector<std::string> notices)
    : m_settings(settings),
      m_findNameFault(std::move(findNameFault)),
      m_notices(std::move(notices)),
      m_outputs(RowsOf(job)),
      m_before(settings.GetTexts()),
      m_entered(m_before) {}

DialogResult ProjectDialog::Show(CProjectInformation& project) {
    SetTexts(project, m_before);
    ShowDates(project, m_before);
    project.SetOutPuts(OutputRows());
    project.ShowGuidedDialog(*this);
    const DialogResult result = project.GetDialogResult();
    // The dialog has written the settings already, with dates in the system's form.
    if (result.outcome == DialogOutcome::kConfirmed)
        m_fault = m_settings.Keep(m_entered);
    return result;
}

ZetArray<COutPutFiles> ProjectDialog::OutputRows() const {
    ZetArray<COutPutFiles> rows;
    for (const job::OutputEnding& output : m_outputs) {
        COutPutFiles row;
        row.SetValues(m_before[kFileNameValue] + output.ending, output.label);
        rows.append(std::move(row));
    }
    return rows;
}

void ProjectDialog::OnFilled(DialogWindow& window) {
    // Not by their texts: not every locale writes all of a date.
    for (std::size_t i = 0; i < m_before.size(); ++i)
        if (kProjectValues[i].kind == ValueKind::kDate)
            window.SetDate(kProjectValues[i].control, *job::ParseIsoDate(m_before[i]));
    m_shown = StateOf(window);
    ZetString notice;
    for (const std::string& each : m_notices)
        notice += ZetString::fromUtf8(each) + L"\n";
    if (!notice.isEmpty())
        window.Tell(window.Caption(), notice);
}

void ProjectDialog::OnEdited(DialogWindow& window, int id) {
    if (id != kProjectValues[kFileNameValue].control)
        return;
    int row = kFirstOutputFile;
    for (const job::OutputEnding& output : m_outputs)
        window.SetText(row++, window.Text(id) + output.ending);
}

ZetString ProjectDialog::FindFault(DialogWindow& window, const CProjectInformation& entered) {
    const ProjectTexts state = StateOf(window);
    m_entered = m_before;
    for (std::size_t i = 0; i < state.size(); ++i) {
        const ProjectValue& value = kProjectValues[i];
        if (state[i] != m_shown[i])
            m_entered[i] = value.kind == ValueKind::kDate ? state[i] : (entered.*value.get)();
        const std::string fault = FaultOf(i);
        if (fault.empty())
            continue;
        if (window.SelectedTab(kTabs) != value.tab)
            window.SelectTab(kTabs, value.tab);
        window.SetFocus(value.control);
        return ZetString(value.label) + L": " + ZetString::fromUtf8(fault);
    }
    return {};
}

std::string ProjectDialog::FaultOf(std::size_t value) const {
    const ZetString& text = m_entered[value];
    if (value == kFileNameValue) {
        if (text.isEmpty())
            return "enter what the names of the files are to begin with.";
        if (std::string fault = m_findNameFault(text); !fault.empty())
            return fault;
    }
    // What the job says need not be saved.
    return text == m_before[value] ? "" : FaultOfText(kProjectValues[value], text);
}

}  // namespace camjob
