// Other programs, started without a shell.
#pragma once

#include <string>
#include <vector>

namespace murala
{

// While it lives this process has the priority of an ordinary one, for others to inherit.
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

// Runs a program (looked up in PATH) to its end, ten seconds at the most. Whether it ended with 0.
bool RunProgram(std::vector<std::string> command);

// Starts a program (looked up in PATH) on its own. Whether it could be started.
bool StartProgram(const std::vector<std::string>& command);

} // namespace murala
