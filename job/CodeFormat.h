#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>

namespace job {

/// What a hole's code can show; mm.
struct CodeValues {
    double diameter = 0.0;  ///< of a slot or cut-out the width
    double length = 0.0;    ///< overall
    double width = 0.0;     ///< overall
    const char* face = "";  ///< as the job file names it
    double x = 0.0;         ///< along the member
    double y = 0.0;         ///< across the face
    double depth = 0.0;     ///< 0: through
};

/// What is wrong with a code such as "D{diameter:.1f}", UTF-8; "" when FillCode can fill it.
std::string FaultOfCode(const ZetString& code);

/// Whether the code has a field to be filled.
bool HasFields(const ZetString& code);

/// The code with its fields filled. Only for codes without a fault.
ZetString FillCode(const ZetString& code, const CodeValues& values);

/// Whether each filled form of the code can be trusted not to contain `text`: it has a character
/// that neither the code's own text nor a filled field has.
bool NeverContains(const ZetString& code, const ZetString& text);

}  // namespace job
