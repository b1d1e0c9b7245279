#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the run, so that the input is kept, when a rule does not hold.
#define ZEL_HOLDS(condition)                                                                                           \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition);                        \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)
