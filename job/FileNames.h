#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>

namespace job {

/// The name in small letters: files whose names agree in them are one file on Windows.
std::wstring SmallLetters(const ZetString& name);

/// What is wrong with the name of a file, UTF-8; "" when every system takes it.
std::string FaultOfFileName(const ZetString& name);

/// The same for what the names of all output files of a run begin with.
inline std::string FaultOfFileNameStart(const ZetString& start) {
    return FaultOfFileName(start + L"-");
}

}  // namespace job
