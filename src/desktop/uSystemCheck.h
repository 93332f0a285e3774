// Whether the program can run on this system at all.
#pragma once

#include <string>

namespace murala
{

// What the system lacks, for the user; empty where the program can run.
std::string SystemProblem();

// Tells why a program with windows ends before it has one: in a message box on Windows, where it
// has no other place to write to.
void TellBeforeWindows(const std::string& text);

} // namespace murala
