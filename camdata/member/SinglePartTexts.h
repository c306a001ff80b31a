#pragma once

#include "camdata/platform/text/ZetFormat.h"
#include "camdata/platform/text/ZetString.h"

/// @file
/// What CMxPeilaib::PrintSinglePartDetail says of single parts that do not come out even.

/// With the indent and how many.
inline constexpr ZetFormatString<ZetString, long> kTooFewPartsFormat =
    L"%s%d no of parts are not selected in selection";
inline constexpr ZetFormatString<ZetString, long> kLeftOverPartsFormat =
    L"%s%d no of parts are not used in any assemblies";
