#pragma once

#include "camdata/platform/text/ZetString.h"
#include "camdata/rules/CMemTypeAndAttrib.h"
#include "camdata/rules/eProfPropType.h"

/// How one dimension of a profile is found. mm.
struct DimensionValues {
    eProfPropType source = eProfPropNone;
    int start = -1;  ///< of the number in the profile name, from 0; of a slope its sign character
    int length = 0;  ///< of the number in the profile name, in characters
    double value = 0.0;   ///< the dimension itself, of source eProfPropFixed
    double factor = 1.0;  ///< of a thickness from the profile name; kept of a slope, else not read
};

/// The arguments of CMemTypeAndAttrib::SetValues by their names. What is not named is as in a
/// member type that nobody has set.
struct MemberTypeValues {
    int recordType = 0;  ///< below 2 the member counts as not processed
    int profileLength = 0;
    DimensionValues height = {};
    DimensionValues width = {};
    DimensionValues thickness = {};
    DimensionValues slope = {};  ///< of the top flange
    int checkProfileLength = 0;
    long viewStart = 99;
    ZetString description = L"Not Implemented";
    ZetString shortName = L"NA";
    long nameStart = 4;  ///< where the name in reports begins in the profile name
    long nameLength = 0;
    long attributeSearchLength = 0;
};

/// A member type of these values.
inline CMemTypeAndAttrib MakeMemberType(const MemberTypeValues& values) {
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(values.recordType, values.profileLength,
                   values.height.source, values.height.start,
                   values.height.length, values.height.value,
                   values.width.source, values.width.start,
                   values.width.length, values.width.value,
                   values.thickness.source, values.thickness.start,
                   values.thickness.length, values.thickness.value, values.thickness.factor,
                   values.slope.source, values.slope.start,
                   values.slope.length, values.slope.value, values.slope.factor,
                   values.checkProfileLength, values.viewStart,
                   values.description, values.shortName,
                   values.nameStart, values.nameLength, values.attributeSearchLength);
    // clang-format on
    return type;
}
