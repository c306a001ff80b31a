#pragma once

#include "camdata/holes/CHoleCode.h"
#include "camdata/holes/eHoleShapeType.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// One rule of a machine for one hole shape: which codes apply, on which back marks and faces, and
/// which members are excluded. A value; the plug-in builds the rules and walks them.
class CAMDATA_API CHoleRule {
  public:
    CHoleRule() = default;
    virtual ~CHoleRule();
    CHoleRule(const CHoleRule&) = default;
    CHoleRule& operator=(const CHoleRule&) = default;
    CHoleRule(CHoleRule&&) = default;
    CHoleRule& operator=(CHoleRule&&) = default;

    /// Sets every field. Mind the order: the other-face distances follow the back marks.
    void SetValues(eHoleShapeType holeShapeType,
                   ZetArray<CHoleCode> holeCodes,
                   ZetArray<ZetArray<CHoleCode>> holeCodeTable,
                   long memNameLength,
                   ZetArray<ZetString> notAppMem,
                   ZetArray<double> backMarks,
                   ZetArray<double> otherFaceDistances,
                   ZetArray<double> diameters,
                   ZetArray<double> secondSizes,
                   bool firstOption,
                   bool secondOption,
                   CHoleCode groupCode,
                   bool lookInAnotherRule,
                   ZetString lookInAnotherSuffix,
                   bool thirdOption);

    /// True when the rule applies to a member, false when its list of members excludes it.
    ///
    /// Compared is a part of the name: with the member name length n > 0 its first n characters,
    /// with n < 0 all but its last |n|, with 0 the whole name. Case counts. `suffix` names the rule
    /// to look in instead when the member is excluded and the look-in-another flag is set; it is
    /// emptied otherwise.
    bool LookInAnotherRule(ZetString memberName, ZetString& suffix) const;

    void SetHoleShapeType(eHoleShapeType type) { m_holeShapeType = type; }
    eHoleShapeType GetHoleShapeType() const { return m_holeShapeType; }
    const ZetArray<CHoleCode>& GetHoleCodes() const { return m_holeCodes; }
    /// Code lists per size entry.
    const ZetArray<ZetArray<CHoleCode>>& GetHoleCodeTable() const { return m_holeCodeTable; }
    /// How much of a member's name counts, see LookInAnotherRule.
    long GetMemNameLength() const { return m_memNameLength; }
    /// The members (or name parts) that the rule does not apply to.
    void SetNotAppMem(ZetArray<ZetString> members) { m_notAppMem = std::move(members); }
    const ZetArray<ZetString>& GetNotAppMem() const { return m_notAppMem; }
    /// The back marks that the rule applies to, mm.
    void SetBackMarkArr(ZetArray<double> backMarks) { m_backMarks = std::move(backMarks); }
    const ZetArray<double>& GetBackMarkArr() const { return m_backMarks; }
    /// The two size lists of the rule, mm.
    const ZetArray<double>& GetDiameters() const { return m_diameters; }
    const ZetArray<double>& GetSecondSizes() const { return m_secondSizes; }
    /// The options carry a meaning for the plug-in only.
    bool GetFirstOption() const { return m_firstOption; }
    bool GetSecondOption() const { return m_secondOption; }
    /// The code of a hole group formed under this rule.
    void SetGroupCode(CHoleCode code) { m_groupCode = std::move(code); }
    CHoleCode GetGroupCode() const { return m_groupCode; }
    /// An excluded member is to be tried under another rule.
    void SetLookInAnotherRule(bool look) { m_lookInAnotherRule = look; }
    bool GetLookInAnotherRule() const { return m_lookInAnotherRule; }
    /// The suffix that names that other rule.
    void SetLookInAnotherSuffix(ZetString suffix) { m_lookInAnotherSuffix = std::move(suffix); }
    ZetString GetLookInAnotherSuffix() const { return m_lookInAnotherSuffix; }
    /// The distances from the other face that the rule applies to, mm.
    void SetOtherFaceArr(ZetArray<double> distances) {
        m_otherFaceDistances = std::move(distances);
    }
    const ZetArray<double>& GetOtherFaceArr() const { return m_otherFaceDistances; }
    bool GetThirdOption() const { return m_thirdOption; }

  private:
    ZetString KeyOf(const ZetString& memberName) const;

    eHoleShapeType m_holeShapeType = eHoleShapeUnknown;
    ZetArray<CHoleCode> m_holeCodes;
    ZetArray<ZetArray<CHoleCode>> m_holeCodeTable;
    long m_memNameLength = 0;
    ZetArray<ZetString> m_notAppMem;
    ZetArray<double> m_backMarks;
    ZetArray<double> m_diameters;
    ZetArray<double> m_secondSizes;
    bool m_firstOption = false;
    bool m_secondOption = false;
    CHoleCode m_groupCode;
    bool m_lookInAnotherRule = false;
    ZetString m_lookInAnotherSuffix;
    ZetArray<double> m_otherFaceDistances;
    bool m_thirdOption = false;
};
