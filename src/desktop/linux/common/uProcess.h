// Other programs, started without a shell.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace murala
{

// While it lives this process has ordinary priority, which programs that are started then inherit.
class TOrdinaryPriority
{
public:
    TOrdinaryPriority();
    TOrdinaryPriority(const TOrdinaryPriority&) = delete;
    TOrdinaryPriority& operator=(const TOrdinaryPriority&) = delete;
    ~TOrdinaryPriority();

private:
    int m_before;
};

// Runs a program (looked up in PATH) in the background; after ten seconds it is killed. `onEnd` is
// told, out of the main loop, whether it ended with 0; at once and with false when it cannot be
// started.
void RunProgramLater(const std::vector<std::string>& command, std::function<void(bool)> onEnd);

bool HasProgram(const std::string& name);

// Starts a program (looked up in PATH) on its own: it stays when this one ends, or is ended from a
// terminal. Whether it could be started.
bool StartProgram(const std::vector<std::string>& command);
// Starts it as well, and waits up to a second: a program that ends with an error within that time
// counts as one that could not be started.
bool StartProgramAndLook(const std::vector<std::string>& command);
// Starts it as well; its number, 0 when it could not be started. `onEnd` is told, out of the main
// loop, when it has ended.
int StartSilentProgram(const std::vector<std::string>& command, std::function<void()> onEnd);

} // namespace murala
