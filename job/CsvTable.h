#pragma once

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

/// A field as a table has it: in quotes where it could be taken for more than one.
std::string CsvField(std::string_view text);

inline constexpr const char* kCsvLineEnd = "\r\n";

}  // namespace job
