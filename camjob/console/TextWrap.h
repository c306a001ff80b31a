#pragma once

#include "camdata/platform/text/ZetString.h"

#include <vector>

/// @file
/// Text in the columns of a terminal.

namespace camjob {

/// Characters, not the two halves that one beyond U+FFFF has in some systems' text; marks of tones
/// take no room.
long DisplayedLength(const ZetString& text);

/// What is parted by blanks.
std::vector<ZetString> WordsOf(const ZetString& text);

/// The lines of a text, broken between words; only a word that is too long by itself is broken.
std::vector<ZetString> Wrapped(const ZetString& text, long width);

/// Lines that are longer than `width` go on below: beneath what follows a wide gap in their first
/// half, else indented by two blanks more. 0: none does.
ZetString Fitted(const ZetString& text, long width);

}  // namespace camjob
