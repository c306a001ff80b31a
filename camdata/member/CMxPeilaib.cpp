#include "camdata/member/CMxPeilaib.h"

#include "camdata/platform/host/HostComError.h"
#include "camdata/util/HostBridge.h"
#include "camdata/util/ModelInterface.h"

#include <array>

namespace {

/// Record types below it are not processed as members.
constexpr int kFirstMemberRecordType = 2;
/// Profiles of this code carry their section's name in the model, not in the NC header.
constexpr const wchar_t* kCodeNamedByModel = L"B";

/// By eEntProp.
constexpr std::array kEntityProperties = {
    &IEqualPartObject::getPartNumber,
    &IEqualPartObject::getAssemblyNumber,
    &IEqualPartObject::getName,
    &IEqualPartObject::getMaterial,
    &IEqualPartObject::getFinish,
    &IEqualPartObject::getRemark,
};
static_assert(kEntityProperties.size() == eEntPropRemark + 1);

enum class Validity {
    kKept,
    kTrue,
    kFalse,
};

}  // namespace

CMxPeilaib::~CMxPeilaib() = default;

void CMxPeilaib::SetMemObjects(CMemTypeAndAttrib memType, CMemberValidations validations) {
    m_groupID = memType.GetRecordType();
    m_memType = std::move(memType);
    m_validations = std::move(validations);
}

void CMxPeilaib::SetNCObjects(ZetNCCreator* creator) {
    if (creator == nullptr)
        return;
    m_entity = creator->getNCEntity();
    m_creator = creator;
    m_structure = creator->getNCStructure();
    ZetNCHeaderData header = creator->getHeader();
    if (header.profileCode == kCodeNamedByModel)
        header.profileName = GetProfileNameFromCreator(creator);
    m_memType.SetHeaderData(std::move(header));
    m_equalPart = HostPtr<IEqualPartObject>::adopt(GetEqualPartObj());
}

void CMxPeilaib::SetEntTypeAndProfileName(ZetNCEntity::NCTypes type, ZetString profileName) {
    m_memType.SetProfileName(std::move(profileName));
    m_entityType = type;
}

ZetString CMxPeilaib::GetEntProp(eEntProp property) const {
    const auto index = static_cast<std::size_t>(property);
    if (index >= kEntityProperties.size())
        return {};
    ZetString text;
    if (const auto equalPart = HostPtr<IEqualPartObject>::adopt(GetEqualPartObj()))
        CheckHostCall((equalPart.get()->*kEntityProperties[index])(&text));
    return text;
}

ZetString CMxPeilaib::GetSPName() const {
    return camdata::detail::ProfileNameOfStructure(m_entity);
}

bool CMxPeilaib::getIsMainPart() const {
    if (!m_equalPart)
        return false;
    IEqualPartObject::HostBool isMainPart = 0;
    CheckHostCall(m_equalPart->getMainPart(&isMainPart));
    return isMainPart == IEqualPartObject::kHostTrue;
}

eMemProcessStatus CMxPeilaib::GetMemStatus() const {
    if (m_memType.GetRecordType() < kFirstMemberRecordType)
        return eMemProcessNotProcessed;
    if (!m_valid)
        return eMemProcessInvalid;
    return IsWarningExist() ? eMemProcessWarnings : eMemProcessClean;
}

int CMxPeilaib::SubtractQty(int n) {
    return m_valid ? m_memType.SubtractQty(n) : -n;
}

bool CMxPeilaib::IsWarningExist() const {
    // One line alone in the second list does not count, on purpose.
    return !m_warnings.isEmpty() || m_secondWarnings.length() > 1;
}

bool CMxPeilaib::AppendMsg(eMsgType type, ZetString line) {
    const std::array lists = {&m_generalMsgs, &m_errors, &m_warnings, &m_nonStdMsgs};
    static_assert(lists.size() == eMsgNonStd + 1);
    const auto index = static_cast<std::size_t>(type);
    if (index >= lists.size())
        return false;
    lists[index]->append(std::move(line));
    return true;
}

void CMxPeilaib::GenerateOutPutStringForHoles() {}

void CMxPeilaib::GenerateOutPutStringForNotches() {}

IEqualPartObject* CMxPeilaib::GetEqualPartObj() const {
    return ::GetEqualPartObj(m_entity);
}

IStraightBeam* CMxPeilaib::GetStBeamObj(ZetNCEntity* entity) {
    return camdata::detail::InterfaceOf<IStraightBeam>(entity).detach();
}

bool CMxPeilaib::GetBeamEndPoints(IStraightBeam* beam,
                                  eProfRefAxis axis,
                                  ZetGeomPoint3d& start,
                                  ZetGeomPoint3d& end,
                                  ZetGeomVector3d& dir) {
    if (beam == nullptr)
        return false;
    ZetGeomPoint3d modelStart;
    ZetGeomPoint3d modelEnd;
    ZetGeomVector3d offset;
    CheckHostCall(beam->getEndPoints(&modelStart, &modelEnd));
    CheckHostCall(beam->getAxisOffset(axis, &offset));
    const ZetGeomVector3d along = modelEnd - modelStart;
    const double length = along.length();
    if (!(length > 0.0))
        return false;
    start = modelStart + offset;
    end = modelEnd + offset;
    dir = along * (1.0 / length);
    return true;
}

/// What a finding does; without a list its lines are dropped.
struct CMxPeilaib::ReportEffect {
    ZetArray<ZetString> CMxPeilaib::*list = nullptr;
    bool makesNonStd = false;
    Validity validity = Validity::kKept;
};

/// What one report type does, by the way in which the finding was filed.
struct CMxPeilaib::ReportEffects {
    ReportEffect ofReportType;  ///< AppendMsg_VT
    ReportEffect ofValidation;  ///< AppendMsg by validation type

    static const ReportEffects& Of(eReportingTypes type);
};

const CMxPeilaib::ReportEffects& CMxPeilaib::ReportEffects::Of(eReportingTypes type) {
    static constexpr ReportEffect kWarning = {&CMxPeilaib::m_warnings};
    static constexpr ReportEffect kNonStd = {&CMxPeilaib::m_warnings, true};
    static constexpr ReportEffect kNonStdSilent = {nullptr, true};
    static constexpr ReportEffect kError = {&CMxPeilaib::m_errors, false, Validity::kFalse};
    // Valid on purpose: the error report, made later, is what makes the member invalid.
    static constexpr ReportEffect kLaterError = {&CMxPeilaib::m_errors, false, Validity::kTrue};
    static constexpr ReportEffect kSecondWarning = {&CMxPeilaib::m_secondWarnings};
    static constexpr ReportEffect kSecondNonStd = {&CMxPeilaib::m_secondWarnings, true};
    static constexpr ReportEffect kSecondError = {
        &CMxPeilaib::m_secondErrors, false, Validity::kFalse};
    // By eReportingTypes.
    static constexpr std::array<ReportEffects, 8> kEffects = {
        {
         {kWarning, kWarning},
         {kWarning, kWarning},
         {kNonStd, kNonStd},
         {kNonStdSilent, kNonStdSilent},
         {kError, kLaterError},
         {kSecondWarning, kWarning},
         {kSecondNonStd, kWarning},
         {kSecondError, kWarning},
         }
    };
    static_assert(kEffects.size() == eReportingSecondError + 1);
    const auto index = static_cast<std::size_t>(type);
    return index < kEffects.size() ? kEffects[index] : kEffects[eReportingWarning];
}

void CMxPeilaib::AppendMsg_VT(eReportingTypes type, ZetString line) {
    AppendMsg_VT(type, ZetArray<ZetString>{std::move(line)});
}

void CMxPeilaib::AppendMsg_VT(eReportingTypes type, const ZetArray<ZetString>& lines) {
    ApplyEffect(ReportEffects::Of(type).ofReportType, lines);
}

eReportingTypes CMxPeilaib::AppendMsg(eValidationTypes type, ZetString line) {
    const eReportingTypes report = type < 0 ? eReportingError : m_validations.GetReportType(type);
    ApplyEffect(ReportEffects::Of(report).ofValidation, {std::move(line)});
    return report;
}

void CMxPeilaib::ApplyEffect(const ReportEffect& effect, const ZetArray<ZetString>& lines) {
    m_nonStd = m_nonStd || effect.makesNonStd;
    if (effect.validity != Validity::kKept)
        m_valid = effect.validity == Validity::kTrue;
    if (effect.list != nullptr)
        (this->*effect.list).appendAll(lines);
}
