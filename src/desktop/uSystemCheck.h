// What a program does before its windows: whether it can run on this system at all, and what it
// tells without them.
#pragma once

#include <string>

namespace murala
{

// What the system lacks, for the user; empty where the program can run.
std::string SystemProblem();

// Prints what the command line asked a program with windows for; false where that cannot be
// written. On Windows such a program has no console: it uses that of its parent, else a message
// box.
bool PrintAnswer(const std::string& text);

// Tells why a program with windows ends before it has one: in a message box on Windows; on Linux on
// the terminal and, where "notify-send" is installed, in a notification.
void TellBeforeWindows(const std::string& text);

} // namespace murala
