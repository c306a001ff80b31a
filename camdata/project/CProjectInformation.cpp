#include "camdata/project/CProjectInformation.h"

#include "camdata/platform/system/ZetFileAccess.h"
#include "camdata/project/CProjectInformationDlg.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using SetText = void (CProjectInformation::*)(ZetString);

namespace {

struct ProjectDatum {
    ZetNCProjectData::ID id;
    SetText set;
};

constexpr ProjectDatum kProjectData[] = {
    {ZetProjectDataEnums::eZetCProjectName,       &CProjectInformation::SetProjectName      },
    {ZetProjectDataEnums::eZetCProjectNo,         &CProjectInformation::SetProjectNo        },
    {ZetProjectDataEnums::eZetCClient,            &CProjectInformation::SetClient           },
    {ZetProjectDataEnums::eZetCColdRolledCust,    &CProjectInformation::SetColdRolledCust   },
    {ZetProjectDataEnums::eZetCColdRolledOrderNo, &CProjectInformation::SetColdRolledOrderNo},
    {ZetProjectDataEnums::eZetCContractor,        &CProjectInformation::SetContractor       },
    {ZetProjectDataEnums::eZetCDesigner,          &CProjectInformation::SetDesigner         },
    {ZetProjectDataEnums::eZetCDetailer,          &CProjectInformation::SetDetailer         },
};
static_assert(std::size(kProjectData) == 8);

using GetText = ZetString (CProjectInformation::*)() const;

struct Setting {
    SetText set;
    GetText get;
};

// The entries of the settings file, in the order of the file.
using Info = CProjectInformation;
constexpr Setting kSettings[] = {
    {&Info::SetFileName,            &Info::GetFileName           },
    {&Info::SetColdRolledOrderNo,   &Info::GetColdRolledOrderNo  },
    {&Info::SetColdRolledOrderDate, &Info::GetColdRolledOrderDate},
    {&Info::SetMxComments,          &Info::GetMxComments         },
    {&Info::SetRevision,            &Info::GetRevision           },
    {&Info::SetRevisionDate,        &Info::GetRevisionDate       },
    {&Info::SetDeliveryDate,        &Info::GetDeliveryDate       },
    {&Info::SetMxDeliveryAddress,   &Info::GetMxDeliveryAddress  },
};
static_assert(std::size(kSettings) == 8);

constexpr std::wstring_view kLineEnd = L"\r\n";

/// Puts the characters of a settings file together to entries.
class SettingsReader {
  public:
    void Add(wchar_t c) {
        const bool beginsLine = std::exchange(m_isAfterLineFeed, c == L'\n');
        if (m_entry.empty() && c == L'+')
            return;
        if (beginsLine)
            ReopenLastEntry();
        if (c == L'\n')
            m_entries.push_back(std::exchange(m_entry, {}));
        else
            m_entry += c;
    }
    std::ptrdiff_t Count() const { return std::ssize(m_entries); }
    std::vector<std::wstring> Entries() && { return std::move(m_entries); }

  private:
    /// The line that begins here belongs to the entry before.
    void ReopenLastEntry() {
        m_entry = std::move(m_entries.back());
        m_entries.pop_back();
        // Meant for the CR of a CR LF line end; any other character goes too.
        if (!m_entry.empty())
            m_entry.pop_back();
        m_entry += kLineEnd;
    }

    std::vector<std::wstring> m_entries;
    std::wstring m_entry;
    bool m_isAfterLineFeed = false;
};

/// The entries up to the end of the file; nothing when that is not reached, or when they are too
/// many to become the expected number.
std::optional<std::vector<std::wstring>> ReadEntries(ZetFileAccess& file, std::int64_t expected) {
    SettingsReader reader;
    wchar_t c = file.ReadChar();
    for (long length = 0; c != ZetFileAccess::kEndOfFile; c = file.ReadChar()) {
        reader.Add(c);
        // One too many may be right at the end: a last line without a line feed drops its entry.
        if (++length > CProjectInformation::kMaxSettingsLength || reader.Count() > expected + 1)
            return std::nullopt;
    }
    if (file.GetFault())
        return std::nullopt;
    return std::move(reader).Entries();
}

/// The content of a settings file.
ZetString SettingsText(const CProjectInformation& project) {
    const ZetArray<ZetString> prefixes = project.GetProjInfoArrInFile();
    ZetString lines;
    long entry = 0;
    for (const Setting& setting : kSettings)
        lines += ZetString::format(L"%s%s\n", prefixes[entry++], (project.*setting.get)());
    return lines;
}

}  // namespace

// A program that takes their address looks for them in the library on Windows.
constexpr int CProjectInformation::s_iCharSize;
constexpr long CProjectInformation::kMaxSettingsLength;

CProjectInformation::~CProjectInformation() = default;

void CProjectInformation::SetProjectData(const ZetNCProjectData& data) {
    for (const ProjectDatum& row : kProjectData)
        (this->*row.set)(data.GetData(row.id));
}

void CProjectInformation::SetOutPuts(const ZetArray<COutPutFiles>& files) {
    m_fileNameArr = files;
    m_noOfOutPuts = files.length();
}

bool CProjectInformation::GetDetailFromFile() {
    ZetFileAccess file;
    if (!file.Open(m_location + m_settingFileName, L"r"))
        return true;
    auto entries = ReadEntries(file, m_expectedEntryCount);
    if (!entries || !std::cmp_equal(entries->size(), m_expectedEntryCount))
        return false;
    const std::size_t count = std::min(entries->size(), std::size(kSettings));
    for (std::size_t i = 0; i < count; ++i) {
        // Not in one expression: GCC 12 then checks an index that it made up.
        const SetText set = kSettings[i].set;
        (this->*set)(ZetString(std::move((*entries)[i])));
    }
    return true;
}

void CProjectInformation::AppendFileHeaderLine(const ZetString& label, const ZetString& value) {
    const ZetString text = ZetString::format(L"%s%-25s : %s", m_commentStr, label, value);
    const std::wstring_view whole = text.view();
    // A line end at the very beginning is none that the text is cut for.
    if (whole.find(kLineEnd, 1) == std::wstring_view::npos)
        return m_fileHeaderArr.append(text);
    std::size_t end = whole.find(kLineEnd);
    m_fileHeaderArr.append(ZetString(whole.substr(0, end)));
    while (end != std::wstring_view::npos) {
        const std::size_t start = end + kLineEnd.size();
        end = whole.find(kLineEnd, start);
        const std::wstring_view piece = whole.substr(start, end - start);
        m_fileHeaderArr.append(ZetString::format(L"%-27s : %s", m_commentStr, piece));
    }
}

std::optional<FileFault> CProjectInformation::WriteSettings() const {
    // A record that names no file needs no prefixes either.
    const ZetString lines = m_projFileName.isEmpty() ? ZetString() : SettingsText(*this);
    if (lines.length() > kMaxSettingsLength)
        return FileFault{m_projFileName, ZetFileFault::Operation::kWrite, EFBIG};
    ZetFileAccess file;
    if (file.Open(m_projFileName, L"w")) {
        file.Write(lines);
        file.Close();
    }
    if (const auto& fault = file.GetFault())
        return FileFault{m_projFileName, fault->operation, fault->systemError};
    return std::nullopt;
}

void CProjectInformation::ShowDialog() {
    RunDialog(nullptr);
}

void CProjectInformation::ShowGuidedDialog(ProjectDialogGuide& guide) {
    RunDialog(&guide);
}

void CProjectInformation::RunDialog(ProjectDialogGuide* guide) {
    CProjectInformationDlg dialog;
    dialog.Init(*this);
    dialog.SetGuide(guide);
    m_dialogResult = dialog.DoModal();
    if (m_dialogResult.outcome != DialogOutcome::kConfirmed) {
        m_isCancelled = true;
        return;
    }
    m_settingsFault = dialog.WriteSettings();
    dialog.CopyBack(*this);
}
