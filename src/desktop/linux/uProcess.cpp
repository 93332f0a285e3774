#include "uProcess.h"

#include "uGLib.h"

#include <sys/resource.h>

namespace murala
{

namespace
{

std::vector<char*> ArgumentPointers(const std::vector<std::string>& command)
{
    std::vector<char*> pointers;
    pointers.reserve(command.size() + 1);
    for (const std::string& argument : command)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

constexpr auto Silent = G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL;

} // namespace

TOrdinaryPriority::TOrdinaryPriority() : m_before(getpriority(PRIO_PROCESS, 0))
{
    if (m_before < 0)
        setpriority(PRIO_PROCESS, 0, 0);
}

TOrdinaryPriority::~TOrdinaryPriority()
{
    if (m_before < 0)
        setpriority(PRIO_PROCESS, 0, m_before);
}

bool RunProgram(std::vector<std::string> command)
{
    const TOrdinaryPriority priority;
    command.insert(command.begin(), {"timeout", "--kill-after=1", "10"});
    int status = 0;
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | Silent);
    return g_spawn_sync(nullptr, ArgumentPointers(command).data(), nullptr, flags, nullptr, nullptr,
                        nullptr, nullptr, &status, nullptr) != FALSE &&
           g_spawn_check_wait_status(status, nullptr) != FALSE;
}

bool StartProgram(const std::vector<std::string>& command)
{
    const TOrdinaryPriority priority;
    return g_spawn_async(nullptr, ArgumentPointers(command).data(), nullptr, G_SPAWN_SEARCH_PATH,
                         nullptr, nullptr, nullptr, nullptr) != FALSE;
}

} // namespace murala
