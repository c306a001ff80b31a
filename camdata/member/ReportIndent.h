#pragma once

#include "camdata/util/CMxUtil.h"

namespace camdata::detail {

/// The blanks before a line about a member.
inline ZetString ReportIndent() {
    return CMxUtil::GetSpaces(10, false);
}

}  // namespace camdata::detail
