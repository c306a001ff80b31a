#include "camdata/rules/CMemberValidations.h"

#include <array>

namespace {

/// By eValidationTypes.
constexpr std::array kDefaultReportTypes = {
    eReportingWarning,  // number of holes
    eReportingError,    // internal contours
    eReportingError,    // external contours
    eReportingWarning,  // minimum length
    eReportingError,    // maximum length
    eReportingError,    // fixed length
    eReportingError,    // from here on: holes and notches
    eReportingNonStd,
    eReportingNonStd,
    eReportingError,
    eReportingError,
    eReportingError,
    eReportingWarning,
    eReportingWarning,
    eReportingError,
    eReportingError,
    eReportingError,
    eReportingError,
};
static_assert(kDefaultReportTypes.size() == eValidationLastFeature + 1);

}  // namespace

CMemberValidations::~CMemberValidations() = default;

void CMemberValidations::InitialiseValidAndReport() {
    m_reportTypes =
        ZetArray<eReportingTypes>(kDefaultReportTypes.begin(), kDefaultReportTypes.end());
}

void CMemberValidations::SetValues(long noOfHoles,
                                   long noOfInternalContours,
                                   long noOfExternalContours,
                                   double minimumLength,
                                   double maximumLength,
                                   bool cutApplicable,
                                   bool sqrHolesApplicable,
                                   bool partofAssy,
                                   int linearDimOrg) {
    m_noOfHoles = noOfHoles;
    m_noOfInternalContours = noOfInternalContours;
    m_noOfExternalContours = noOfExternalContours;
    m_minimumLength = minimumLength;
    m_maximumLength = maximumLength;
    m_cutApplicable = cutApplicable;
    m_sqrHolesApplicable = sqrHolesApplicable;
    m_partofAssy = partofAssy;
    m_linearDimOrg = linearDimOrg;
}

eReportingTypes CMemberValidations::GetReportType(eValidationTypes type) const {
    return type >= m_reportTypes.length() ? eReportingError : m_reportTypes[type];
}

bool CMemberValidations::SetReportType(eValidationTypes type, eReportingTypes report) {
    if (type >= m_reportTypes.length())
        return false;
    m_reportTypes[type] = report;
    return true;
}
