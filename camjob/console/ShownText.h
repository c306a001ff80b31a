#pragma once

#include "camjob/console/Colour.h"
#include "camjob/console/OutputStream.h"

#include "camdata/platform/text/ZetString.h"

/// @file
/// The last step of all text for people.

namespace camjob {

/// Writes lines as a terminal can take them (Printable), in its width and the colours of their
/// tones.
void WriteText(OutputStream& stream, const ZetString& text);
/// The same for one line, without its end; what looks like line ends in it is none.
void WriteLine(OutputStream& stream, const ZetString& text, Tone tone = Tone::kPlain);

}  // namespace camjob
