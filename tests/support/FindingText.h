#pragma once

#include "job/FindingTypes.h"
#include "job/TextPattern.h"

#include "camdata/platform/text/ZetString.h"

#include <regex>
#include <sstream>
#include <string>

/// Whether the table of findings says that this type of finding can be told so.
inline bool IsTextOf(const job::FindingType& type, const std::string& text) {
    std::istringstream patterns(std::regex_replace(type.text, std::regex("<[^>]*>"), "*"));
    for (std::string pattern; std::getline(patterns, pattern);)
        if (job::MatchesPattern(ZetString::fromUtf8(text).view(),
                                ZetString::fromUtf8(pattern).view()))
            return true;
    return false;
}
