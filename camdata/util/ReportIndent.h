#pragma once

#include "camdata/platform/text/ZetString.h"
#include "camdata/util/CMxUtil.h"

/// @file
/// Blanks before the lines of the reports.

/// Before a line about a member.
inline ZetString MemberLineIndent() {
    return CMxUtil::GetSpaces(10, false);
}

/// Before a line about a hole or notch of a member.
inline ZetString FeatureLineIndent() {
    return CMxUtil::GetSpaces(20, false);
}
