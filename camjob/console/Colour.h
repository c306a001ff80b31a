#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>

/// @file
/// Colours of reports for people. A text is toned while it is made; what steers the terminal comes
/// into it last, when all that files hold has been made harmless.

namespace camjob {

/// How serious a text is.
enum class Tone { kPlain, kWarning, kError };

/// A text that Coloured gives the colour of its tone; the text itself without colour.
ZetString Toned(const ZetString& text, Tone tone, bool hasColour);
/// True for what Toned leaves around a text.
bool IsToneMark(wchar_t c);
/// What terminals make colours of in the place of what Toned has left. After Printable, which
/// would show it.
std::string Coloured(std::string text);
/// False when the environment asks for text without colours (NO_COLOR).
bool WantsColour();

}  // namespace camjob
