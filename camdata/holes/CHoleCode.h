#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// One output code of a hole (a punch tool's code, for example), with what is needed to pair it
/// with a hole on the opposite face. A value.
class CAMDATA_API CHoleCode {
  public:
    CHoleCode() = default;
    virtual ~CHoleCode() = default;
    CHoleCode(const CHoleCode&) = default;
    CHoleCode& operator=(const CHoleCode&) = default;
    CHoleCode(CHoleCode&&) = default;
    CHoleCode& operator=(CHoleCode&&) = default;

    /// Sets code, pair status and the non-standard flag; the pair replace string stays.
    void SetValues(ZetString code, long pairStatus, bool nonStd) {
        m_pairCode = std::move(code);
        m_pairStatus = pairStatus;
        m_nonStd = nonStd;
    }
    /// The same for a standard hole.
    void SetValues(ZetString code, long pairStatus) {
        SetValues(std::move(code), pairStatus, false);
    }

    /// The code text itself.
    void SetPairCode(ZetString code) { m_pairCode = std::move(code); }
    const ZetString& GetPairCode() const { return m_pairCode; }
    /// How the code pairs with a hole on the other face; -1: not set.
    void SetPairStatus(long status) { m_pairStatus = status; }
    long GetPairStatus() const { return m_pairStatus; }
    /// The code marks a non-standard hole.
    void SetNonStd(bool nonStd) { m_nonStd = nonStd; }
    bool GetNonStd() const { return m_nonStd; }
    /// The text that takes the place of the code when the hole is paired.
    void SetPairReplaceStr(ZetString text) { m_pairReplaceStr = std::move(text); }
    const ZetString& GetPairReplaceStr() const { return m_pairReplaceStr; }

  private:
    ZetString m_pairCode;
    long m_pairStatus = -1;
    /// True on purpose: a code that was never given values counts as non-standard.
    bool m_nonStd = true;
    ZetString m_pairReplaceStr{std::wstring_view(L"y ", 2)};
};
