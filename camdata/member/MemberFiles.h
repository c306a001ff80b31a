#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/system/ZetFileAccess.h"

/// @file
/// The files that a member is handed (CMxPeilaib::WriteMemOutPut, PrintSinglePartDetail): those of
/// its group first, null for one that is not there; the last two are the file of warnings and the
/// file of errors, never null.

/// How many files are the group's own.
inline long CountGroupFiles(const ZetArray<ZetFileAccess*>& files) {
    return files.length() - 2;
}

inline ZetFileAccess* WarningFileOf(const ZetArray<ZetFileAccess*>& files) {
    return files[files.length() - 2];
}

inline ZetFileAccess* ErrorFileOf(const ZetArray<ZetFileAccess*>& files) {
    return files.last();
}
