#include "dstv/NcNote.h"

namespace dstv {

ZetString NcError::describe() const {
    const ZetString place = line > 0 ? ZetString::format(L"%s:%d", file, line) : file;
    return ZetString::format(L"%s: %s \"%s\": expected %s", place, what, found, expected);
}

}  // namespace dstv
