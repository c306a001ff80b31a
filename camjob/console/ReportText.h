#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>
#include <vector>

/// @file
/// Words and numbers of the reports for people.

namespace camjob {

/// UTF-8 that a terminal can take: what a file holds must not steer it. Control characters but line
/// ends, those that turn the direction of a text and line separators show as "\u001B".
std::string Printable(const ZetString& text);
/// The same as wide text.
ZetString PrintableText(const ZetString& text);
/// A file's name may hold line ends, which must not look like lines of the report.
ZetString OneLine(const ZetString& text);
/// One decimal, and no sign before zero.
ZetString Number(double value);
ZetString Integer(long value);
ZetString CountOf(long count, const wchar_t* one, const wchar_t* many);
/// "1 note", "2 notes".
ZetString Count(long count, const ZetString& noun);
ZetString Joined(const std::vector<ZetString>& texts, const wchar_t* separator);
/// A line of a report below its heading: `text` with the indent and its end.
ZetString Line(const ZetString& text);
/// The line for entries of a list that are not shown; "" for none.
ZetString MoreLine(long count);
/// Paragraphs that have anything, a blank line between.
ZetString Paragraphs(const std::vector<ZetString>& paragraphs);

}  // namespace camjob
