#pragma once

#include "camdata/platform/base/ZetAssert.h"

#include <string>

/// The text of the assertion that `action` fails, "none" when it fails none.
template <typename Action>
std::string AssertionOf(const Action& action) {
    try {
        action();
    } catch (const ZetAssertError& error) {
        return error.GetText();
    }
    return "none";
}
