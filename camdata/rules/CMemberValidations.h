#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/rules/eReportingTypes.h"
#include "camdata/rules/eValidationTypes.h"

/// The limits against which one kind of member is checked, and how each finding is reported.
/// A value; mm. Mind the defaults: no contour is allowed, and every length exceeds the maximum.
class CAMDATA_API CMemberValidations {
  public:
    /// The limits below and the default report types.
    CMemberValidations() { InitialiseValidAndReport(); }
    virtual ~CMemberValidations();
    CMemberValidations(const CMemberValidations&) = default;
    CMemberValidations& operator=(const CMemberValidations&) = default;
    CMemberValidations(CMemberValidations&&) = default;
    CMemberValidations& operator=(CMemberValidations&&) = default;

    /// Puts the default report types back; limits and switches stay.
    void InitialiseValidAndReport();
    /// Sets the limits and switches; the report types stay.
    void SetValues(long noOfHoles,
                   long noOfInternalContours,
                   long noOfExternalContours,
                   double minimumLength,
                   double maximumLength,
                   bool cutApplicable,
                   bool sqrHolesApplicable,
                   bool partofAssy,
                   int linearDimOrg);

    /// How a finding is reported; eReportingError for a type beyond the table. A negative type
    /// fails the assertion "isValid( index )".
    eReportingTypes GetReportType(eValidationTypes type) const;
    /// False, changing nothing, for a type beyond the table. A negative type fails the assertion
    /// "isValid( index )".
    bool SetReportType(eValidationTypes type, eReportingTypes report);

    /// The largest number allowed; negative: no limit.
    void SetNoOfHoles(long limit) { m_noOfHoles = limit; }
    long GetNoOfHoles() const { return m_noOfHoles; }
    void SetNoOfInternalContours(long limit) { m_noOfInternalContours = limit; }
    long GetNoOfInternalContours() const { return m_noOfInternalContours; }
    void SetNoOfExternalContours(long limit) { m_noOfExternalContours = limit; }
    long GetNoOfExternalContours() const { return m_noOfExternalContours; }
    void SetMinimumLength(double length) { m_minimumLength = length; }
    double GetMinimumLength() const { return m_minimumLength; }
    void SetMaximumLength(double length) { m_maximumLength = length; }
    double GetMaximumLength() const { return m_maximumLength; }
    /// The switches and the origin of linear dimensions are kept for hosts and writers.
    void SetCutApplicable(bool applicable) { m_cutApplicable = applicable; }
    bool GetCutApplicable() const { return m_cutApplicable; }
    void SetSqrHolesApplicable(bool applicable) { m_sqrHolesApplicable = applicable; }
    bool GetSqrHolesApplicable() const { return m_sqrHolesApplicable; }
    void SetPartofAssy(bool partofAssy) { m_partofAssy = partofAssy; }
    bool GetPartofAssy() const { return m_partofAssy; }
    void SetLinearDimOrg(int origin) { m_linearDimOrg = origin; }
    int GetLinearDimOrg() const { return m_linearDimOrg; }

  private:
    long m_noOfHoles = -1;
    long m_noOfInternalContours = 0;
    long m_noOfExternalContours = 0;
    double m_minimumLength = 0.0;
    double m_maximumLength = -1.0;
    bool m_cutApplicable = false;
    bool m_sqrHolesApplicable = false;
    bool m_partofAssy = false;
    int m_linearDimOrg = 0;
    /// By eValidationTypes.
    ZetArray<eReportingTypes> m_reportTypes;
};
