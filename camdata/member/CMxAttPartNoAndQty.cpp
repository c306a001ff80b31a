#include "camdata/member/CMxAttPartNoAndQty.h"

CMxAttPartNoAndQty::~CMxAttPartNoAndQty() = default;

CMxAttPartNoAndQty& CMxAttPartNoAndQty::operator=(const ZetNCHeaderData& header) {
    m_partNo = header.mark;
    m_qty = static_cast<int>(header.quantity);
    m_headerData = header;
    return *this;
}
