#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>

namespace job {

/// What the name of a member's NC file can show.
struct NcNameValues {
    ZetString mark;
    ZetString fileName;  ///< of the NC file that was read, without its ending
    ZetString profile;
    ZetString drawing;
    ZetString phase;
    ZetString order;
    ZetString group;
};

/// What is wrong with a pattern of names such as "{mark}.nc1", UTF-8; "" for nothing.
std::string FaultOfNcNames(const ZetString& pattern);
/// The name by a pattern without a fault; it may be no name for a file.
ZetString FillNcName(const ZetString& pattern, const NcNameValues& values);

}  // namespace job
