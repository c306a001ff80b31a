#pragma once

#include "plugin/formats/MachineMember.h"

#include "camdata/platform/text/ZetString.h"

#include <string>
#include <variant>
#include <vector>

/// @file
/// The machine records: plain text with a block for each member and a line for each operation, as
/// docs/machine-file.md tells. One table of fields is what both the writer and the reader follow.

namespace plugin {

/// A length or angle with the decimals that a record has of it.
double RoundAsRecorded(double value);

/// A member's block as UTF-8: the line that begins it, one for each operation, the line that ends it.
std::string FormatMember(const MachineMember& member);
/// One operation's line as UTF-8, without its end.
std::string FormatOperation(const MachineOperation& operation);

/// The first fault of a text that should hold machine records.
struct MachineFault {
    long line = 0;  ///< from 1
    ZetString text;
};

/// Reads all members of a text. Outside of blocks, lines that do not begin one are headings and are
/// passed over.
std::variant<std::vector<MachineMember>, MachineFault> ReadMachineRecords(const ZetString& text);

}  // namespace plugin
