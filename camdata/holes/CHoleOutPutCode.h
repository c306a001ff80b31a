#pragma once

#include "camdata/holes/CHoleCode.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"

#include <utility>

/// The complete output coding of one hole: its own code, its pair partners' and its group's. A
/// value.
class CAMDATA_API CHoleOutPutCode {
  public:
    CHoleOutPutCode() = default;
    virtual ~CHoleOutPutCode() = default;
    CHoleOutPutCode(const CHoleOutPutCode&) = default;
    CHoleOutPutCode& operator=(const CHoleOutPutCode&) = default;
    CHoleOutPutCode(CHoleOutPutCode&&) = default;
    CHoleOutPutCode& operator=(CHoleOutPutCode&&) = default;

    void SetHoleCode(CHoleCode code) { m_holeCode = std::move(code); }
    CHoleCode GetHoleCode() const { return m_holeCode; }
    /// The hole is output as part of a hole group, under the group code.
    void SetIsGroup(bool isGroup) { m_isGroup = isGroup; }
    bool GetIsGroup() const { return m_isGroup; }
    /// The hole may only be output as part of its group.
    void SetIsGroupMust(bool isGroupMust) { m_isGroupMust = isGroupMust; }
    bool GetIsGroupMust() const { return m_isGroupMust; }
    /// The codes of the pair partners.
    void SetPairCodes(ZetArray<CHoleCode> codes) { m_pairCodes = std::move(codes); }
    ZetArray<CHoleCode> GetPairCodes() const { return m_pairCodes; }
    void SetGroupCode(CHoleCode code) { m_groupCode = std::move(code); }
    CHoleCode GetGroupCode() const { return m_groupCode; }

  private:
    CHoleCode m_holeCode;
    bool m_isGroup = false;
    bool m_isGroupMust = false;
    ZetArray<CHoleCode> m_pairCodes;
    CHoleCode m_groupCode;
};
