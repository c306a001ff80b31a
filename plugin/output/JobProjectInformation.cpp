#include "plugin/output/JobProjectInformation.h"

#include "job/ControlCharacters.h"
#include "job/IsoDate.h"
#include "plugin/rules/ArrayFromVector.h"

#include "camdata/platform/system/Clock.h"

#include <cstdint>
#include <iterator>

namespace plugin {

namespace {

using SetText = void (CProjectInformation::*)(ZetString);
using GetText = ZetString (CProjectInformation::*)() const;

constexpr std::int32_t kSettingsEntries = 8;
/// The mark that reading takes away again.
constexpr const wchar_t* kEntryMark = L"+";

struct TextRow {
    ZetString job::ProjectData::*text;
    SetText set;
};

constexpr TextRow kTexts[] = {
    {&job::ProjectData::caption,            &CProjectInformation::SetDialogCaption    },
    {&job::ProjectData::fileName,           &CProjectInformation::SetFileName         },
    {&job::ProjectData::settingsFile,       &CProjectInformation::SetSettingFileName  },
    {&job::ProjectData::modelName,          &CProjectInformation::SetModelName        },
    {&job::ProjectData::modelRef,           &CProjectInformation::SetModelRef         },
    {&job::ProjectData::name,               &CProjectInformation::SetProjectName      },
    {&job::ProjectData::number,             &CProjectInformation::SetProjectNo        },
    {&job::ProjectData::client,             &CProjectInformation::SetClient           },
    {&job::ProjectData::coldRolledCustomer, &CProjectInformation::SetColdRolledCust   },
    {&job::ProjectData::coldRolledOrderNo,  &CProjectInformation::SetColdRolledOrderNo},
    {&job::ProjectData::contractor,         &CProjectInformation::SetContractor       },
    {&job::ProjectData::designer,           &CProjectInformation::SetDesigner         },
    {&job::ProjectData::detailer,           &CProjectInformation::SetDetailer         },
    {&job::ProjectData::revision,           &CProjectInformation::SetRevision         },
    {&job::ProjectData::commentMarker,      &CProjectInformation::SetCommentStr       },
};

constexpr TextRow kDates[] = {
    {&job::ProjectData::coldRolledOrderDate, &CProjectInformation::SetColdRolledOrderDate},
    {&job::ProjectData::revisionDate,        &CProjectInformation::SetRevisionDate       },
    {&job::ProjectData::deliveryDate,        &CProjectInformation::SetDeliveryDate       },
};

struct HeaderRow {
    const wchar_t* label;
    GetText get;
};

constexpr HeaderRow kHeaderRows[] = {
    {L"Model Ref",              &CProjectInformation::GetModelRef           },
    {L"Project",                &CProjectInformation::GetProjectName        },
    {L"Project No",             &CProjectInformation::GetProjectNo          },
    {L"Client",                 &CProjectInformation::GetClient             },
    {L"Cold Rolled Customer",   &CProjectInformation::GetColdRolledCust     },
    {L"Cold Rolled Order No",   &CProjectInformation::GetColdRolledOrderNo  },
    {L"Cold Rolled Order Date", &CProjectInformation::GetColdRolledOrderDate},
    {L"Contractor",             &CProjectInformation::GetContractor         },
    {L"Designer",               &CProjectInformation::GetDesigner           },
    {L"Detailer",               &CProjectInformation::GetDetailer           },
    {L"Comments",               &CProjectInformation::GetMxComments         },
    {L"Revision",               &CProjectInformation::GetRevision           },
    {L"Revision Date",          &CProjectInformation::GetRevisionDate       },
    {L"Delivery Date",          &CProjectInformation::GetDeliveryDate       },
    {L"Delivery Address",       &CProjectInformation::GetMxDeliveryAddress  },
};

ZetString Joined(const std::vector<ZetString>& lines) {
    ZetString text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        text += (i == 0 ? ZetString() : ZetString(L"\r\n")) + lines[i];
    return text;
}

}  // namespace

JobProjectInformation::JobProjectInformation(const job::Job& job, const ZetString& location) {
    m_expectedEntryCount = kSettingsEntries;
    ZetArray<ZetString> marks;
    for (std::int32_t i = 0; i < kSettingsEntries; ++i)
        marks.append(kEntryMark);
    SetProjInfoArrInFile(std::move(marks));
    SetTexts(job.project);
    SetDates(job);
    SetLocation(location);
    SetProjFileName(location + job.project.settingsFile);
}

void JobProjectInformation::SetTexts(const job::ProjectData& project) {
    for (const TextRow& row : kTexts)
        (this->*row.set)(project.*row.text);
    SetComments(ArrayFromVector(project.comments));
    SetMxComments(Joined(project.comments));
    SetDeliveryAddress(ArrayFromVector(project.deliveryAddress));
    SetMxDeliveryAddress(Joined(project.deliveryAddress));
}

void JobProjectInformation::SetDates(const job::Job& job) {
    // The same on every system, unlike the platform's short date.
    const ZetString today = job::IsoDate(job.date.value_or(Today()));
    for (const TextRow& row : kDates) {
        const ZetString& text = job.project.*row.text;
        (this->*row.set)(text.isEmpty() ? today : text);
    }
}

FormatTexts JobProjectInformation::MakeFormatTexts(const job::Job& job) const {
    return {GetFileName(),
            job.name,
            GetProjectName(),
            GetProjectNo(),
            GetClient(),
            GetRevision(),
            job::IsoDate(Today())};
}

ZetArray<ZetString> JobProjectInformation::MakeHeaderLines() {
    SetFileHeaderArr({});
    for (const HeaderRow& row : kHeaderRows) {
        const ZetString text = (this->*row.get)();
        if (!text.isEmpty())
            AppendFileHeaderLine(row.label, job::EscapeControls(text));
    }
    return GetFileHeaderArr();
}

}  // namespace plugin
