#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the fuzzer when what it holds for a law does not hold.
inline void Check(bool holds, const char* law) {
    if (holds)
        return;
    std::fprintf(stderr, "The law does not hold: %s\n", law);
    std::abort();
}
