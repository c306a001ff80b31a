#pragma once

#include <string>
#include <system_error>

namespace job {

/// What the system says of an error, as the end of a sentence: " (...)", in the same words on every
/// system; "" for no error.
std::string ReasonBehind(const std::error_code& error);
/// Of an error number as files keep it.
std::string ReasonBehind(int systemError);

}  // namespace job
