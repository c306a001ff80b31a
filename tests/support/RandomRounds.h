#pragma once

#include <cstdlib>

/// How many random cases a test tries: `usual`, times what the environment variable
/// CAMDATA_RANDOM_TIMES says. The first ones are always the same.
inline int RandomRounds(int usual) {
    const char* const times = std::getenv("CAMDATA_RANDOM_TIMES");
    return times == nullptr ? usual : usual * std::atoi(times);
}
