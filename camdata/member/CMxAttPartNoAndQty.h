#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/host/ZetNCHeaderData.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// One part attached to the main part of an assembly: how many there are, its NC header, and what
/// its own member says of it. A value.
class CAMDATA_API CMxAttPartNoAndQty {
  public:
    CMxAttPartNoAndQty() = default;
    virtual ~CMxAttPartNoAndQty();
    CMxAttPartNoAndQty(const CMxAttPartNoAndQty&) = default;
    CMxAttPartNoAndQty& operator=(const CMxAttPartNoAndQty&) = default;
    CMxAttPartNoAndQty(CMxAttPartNoAndQty&&) = default;
    CMxAttPartNoAndQty& operator=(CMxAttPartNoAndQty&&) = default;
    /// Takes over the whole header, with its mark as part number and its quantity; the flags and
    /// the output text stay.
    CMxAttPartNoAndQty& operator=(const ZetNCHeaderData& header);

    void SetPartNo(ZetString mark) { m_partNo = std::move(mark); }
    ZetString GetPartNo() const { return m_partNo; }
    void SetQty(int qty) { m_qty = qty; }
    int GetQty() const { return m_qty; }
    void SetHeaderData(ZetNCHeaderData header) { m_headerData = std::move(header); }
    ZetNCHeaderData GetHeaderData() const { return m_headerData; }
    /// The holes of the part's member are mirrored.
    void SetMirrored(bool mirrored) { m_mirrored = mirrored; }
    bool GetMirrored() const { return m_mirrored; }
    void SetNonStd(bool nonStd) { m_nonStd = nonStd; }
    bool GetNonStd() const { return m_nonStd; }
    /// The special output text of the part's member.
    void SetOutStr(ZetString text) { m_outStr = std::move(text); }
    ZetString GetOutStr() const { return m_outStr; }

  private:
    ZetString m_partNo;
    int m_qty = 0;
    ZetNCHeaderData m_headerData;
    bool m_mirrored = false;
    bool m_nonStd = false;
    ZetString m_outStr;
};
