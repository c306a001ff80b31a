#pragma once

#include "job/formats/MachineFormat.h"

#include "camdata/platform/text/ZetString.h"

#include <optional>
#include <string>
#include <string_view>

/// @file
/// How one value of a machine's file is written. Each call appends to `out`; with a fault
/// `out` is of no use.

namespace plugin {

/// Why a value cannot be written.
struct ValueFault {
    ZetString text;  ///< "": it can
    std::optional<double> required = {};
    std::optional<double> found = {};

    bool IsEmpty() const { return text.isEmpty(); }
};

/// A number, length (mm) or angle. With a comma it stands in quotes where texts can, but not
/// `isInList`: quotes are around the list as a whole.
ValueFault AppendNumber(std::string& out,
                        double value,
                        job::FieldType type,
                        const job::FieldSpec& spec,
                        const job::MachineFormat& format,
                        bool isInList);
ValueFault AppendWhole(std::string& out,
                       long value,
                       const job::FieldSpec& spec,
                       const job::MachineFormat& format);
/// A text that the job or an NC file gives: it is made to fit the format.
ValueFault AppendText(std::string& out,
                      std::wstring_view text,
                      const job::FieldSpec& spec,
                      const job::MachineFormat& format);
/// A word that stands as it is.
ValueFault AppendWord(std::string& out,
                      std::wstring_view word,
                      const job::FieldSpec& spec,
                      const job::MachineFormat& format);

/// A number as it is written with these decimals, in units of the last of them.
double StepsOf(double value, int decimals);
/// A length in the unit of the format.
double InUnit(double millimetres, job::NumberUnit unit);

}  // namespace plugin
