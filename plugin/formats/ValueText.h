#pragma once

#include "job/formats/MachineFormat.h"

#include "camdata/platform/text/ZetString.h"

#include <string>
#include <string_view>

/// @file
/// How one value of a machine's file is written. Each call appends to `out`; else it returns why
/// the value cannot be written, and `out` is of no use.

namespace plugin {

/// A number, length (mm) or angle.
ZetString AppendNumber(std::string& out,
                       double value,
                       job::FieldType type,
                       const job::FieldSpec& spec,
                       const job::MachineFormat& format);
ZetString AppendWhole(std::string& out,
                      long value,
                      const job::FieldSpec& spec,
                      const job::MachineFormat& format);
/// A text that the job or an NC file gives: it is made to fit the format.
ZetString AppendText(std::string& out,
                     std::wstring_view text,
                     const job::FieldSpec& spec,
                     const job::MachineFormat& format);
/// A word that the format itself gives.
ZetString AppendWord(std::string& out,
                     std::wstring_view word,
                     const job::FieldSpec& spec,
                     const job::MachineFormat& format);

/// A length in the unit of the format.
double InUnit(double millimetres, job::NumberUnit unit);

}  // namespace plugin
