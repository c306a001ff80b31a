#pragma once

#include "camdata/platform/text/ZetString.h"

/// How a dialog ended.
enum class DialogOutcome {
    kConfirmed,  ///< the user confirmed it
    kCancelled,  ///< the user cancelled it
    kNotShown,   ///< nobody has seen it
};

/// The end of a dialog. A plain value.
struct DialogResult {
    DialogOutcome outcome = DialogOutcome::kNotShown;
    /// Why the dialog could not be shown; "" otherwise, and before the first try.
    ZetString reason;
};
