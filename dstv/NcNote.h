#pragma once

#include "camdata/platform/text/ZetString.h"

#include <vector>

namespace dstv {

/// Something about a file that its user should know, although the file was read.
struct NcNote {
    enum class Severity {
        kNote,     ///< read as a careful person would, or skipped knowingly
        kWarning,  ///< read, but probably not what the file's maker wanted
    };

    Severity severity = Severity::kNote;
    long line = 0;  ///< counted from 1
    ZetString text;
};

/// Why a file could not be read, at one of its lines.
struct NcError {
    ZetString file;  ///< as the caller named it
    long line =
        0;  ///< counted from 1; 0: the file as a whole, for example one that cannot be opened
    long column = 0;     ///< of the text found, in bytes, counted from 1; 0: the line as a whole
    ZetString what;      ///< the thing that is wrong, for example "length"
    ZetString found;     ///< the text of the file, shortened when very long
    ZetString expected;  ///< for example "a number in mm, or two separated by a comma"
    bool isOfEncoding = false;  ///< a byte that the encoding of the texts does not have
    std::vector<NcError> further = {};  ///< the file's errors behind this one, each without its own

    /// One line without its end, for example
    /// `part.nc1:9: length "6236:88": expected a number in mm, or two separated by a comma`.
    ZetString describe() const;
};

}  // namespace dstv
