#include "uSystemCheck.h"

#include <cstdio>

namespace murala
{

std::string SystemProblem()
{
    return {};
}

void TellBeforeWindows(const std::string& text)
{
    std::fprintf(stderr, "Murala: %s\n", text.c_str());
}

} // namespace murala
