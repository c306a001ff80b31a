#pragma once

#include <string>
#include <system_error>

/// What the system says of an error, in the language of the test run.
inline std::string SystemText(std::errc error) {
    return std::make_error_condition(error).message();
}
