#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>

namespace job {

/// What a code can show; mm.
struct CodeValues {
    double diameter = 0.0;  ///< of a slot or cut-out the width
    double length = 0.0;    ///< overall; of a notch that is no rectangle 0
    double width = 0.0;     ///< the same
    const char* face = "";  ///< as the job file names it
    double x = 0.0;         ///< along the member; of a trim along it 0
    double y = 0.0;         ///< across the face; of a trim across it 0
    double depth = 0.0;     ///< 0: through
};

/// What a code is of, which has not all values.
enum class CodeOf {
    kHole,
    kNotch,  ///< no diameter and no depth
    kTrim,   ///< face, x and y only
};

/// What is wrong with a code such as "D{diameter:.1f}", UTF-8; "" when FillCode can fill it.
std::string FaultOfCode(const ZetString& code, CodeOf what = CodeOf::kHole);

/// Whether the code has a field to be filled.
bool HasFields(const ZetString& code);

/// The code with its fields filled. Only for codes without a fault.
ZetString FillCode(const ZetString& code, const CodeValues& values);

/// Whether each filled form of the code can be trusted not to contain `text`: it has a character
/// that neither the code's own text nor a filled field has.
bool NeverContains(const ZetString& code, const ZetString& text);

}  // namespace job
