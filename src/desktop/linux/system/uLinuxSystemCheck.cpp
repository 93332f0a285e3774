#include "uProcess.h"
#include "uSystemCheck.h"

#include <cstdio>

namespace murala
{

std::string SystemProblem()
{
    return {};
}

bool PrintAnswer(const std::string& text)
{
    return std::fputs(text.c_str(), stdout) != EOF && std::fflush(stdout) == 0;
}

void TellBeforeWindows(const std::string& text)
{
    std::fprintf(stderr, "Murala: %s\n", text.c_str());
    // Who starts Murala from a menu sees no terminal.
    StartProgram({"notify-send", "Murala", text});
}

} // namespace murala
