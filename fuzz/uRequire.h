// A property that must hold for every input.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace murala
{

inline void Require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

} // namespace murala
