#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>
#include <string_view>
#include <vector>

/// @file
/// Tables of comma-separated values, as RFC 4180 has them.

namespace job {

/// One record. Quotes are taken off, and blanks around a field.
struct CsvRecord {
    long line = 0;  ///< where it begins, from 1
    std::vector<std::string> fields;
    /// Why it is none, one line without a full stop; "": it is one.
    std::string fault;
};

/// The records of a table, UTF-8 without a byte order mark. Lines end with LF, with or without a
/// CR; empty lines do not count.
std::vector<CsvRecord> ReadCsv(std::string_view bytes);

/// Whether a spreadsheet would run a text as a formula: it begins with = + - or @, also behind
/// blanks and apostrophes, and is no negative number.
bool IsFormula(std::wstring_view text);
/// What keeps it from that when it goes before the text.
inline constexpr char kFormulaGuard = '\'';

/// A text as a field of a table: a formula behind an apostrophe, in quotes where it could be taken
/// for more than one.
std::string CsvField(const ZetString& text);

/// The text of a field that CsvField made.
ZetString TextOfField(const std::string& field);

inline constexpr const char* kCsvLineEnd = "\r\n";

}  // namespace job
