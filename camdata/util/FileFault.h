#pragma once

#include "camdata/platform/system/ZetFileAccess.h"
#include "camdata/platform/text/ZetString.h"

/// A file that could not be opened, written or closed. A plain value.
struct FileFault {
    ZetString fileName;
    ZetFileFault::Operation operation = ZetFileFault::Operation::kOpen;
    int systemError = 0;  ///< errno of the failed call; 0: the file was not open

    friend bool operator==(const FileFault&, const FileFault&) = default;
};
