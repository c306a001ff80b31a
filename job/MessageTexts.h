#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string>
#include <string_view>
#include <vector>

namespace job {

std::string Quoted(std::string_view text);
std::string Quoted(const ZetString& text);
/// Shortest text of a number, at most ten digits.
std::string ShowNumber(double value);
/// `; did you mean "..."?` where one of `words` is near, else "".
std::string Suggest(std::string_view word, const std::vector<std::string>& words);

}  // namespace job
