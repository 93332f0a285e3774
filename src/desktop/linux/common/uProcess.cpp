#include "uProcess.h"

#include "uDoor.h"
#include "uGLib.h"
#include "uWork.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

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

namespace
{

constexpr unsigned RunLimitMs = 10'000;

// A program that runs; it deletes itself.
struct TRun {
    TGObject<GSubprocess> Process;
    std::function<void(bool)> OnEnd;
    TSource Limit;
};

void OnRunEnd(GObject* process, GAsyncResult* result, gpointer data)
{
    const std::unique_ptr<TRun> run(static_cast<TRun*>(data));
    const bool worked =
        g_subprocess_wait_check_finish(G_SUBPROCESS(process), result, nullptr) != FALSE;
    NoThrow([&] { run->OnEnd(worked); });
}

} // namespace

void RunProgramLater(const std::vector<std::string>& command, std::function<void(bool)> onEnd)
{
    const TOrdinaryPriority priority;
    constexpr auto silent = G_SUBPROCESS_FLAGS_STDOUT_SILENCE | G_SUBPROCESS_FLAGS_STDERR_SILENCE;
    TGObject<GSubprocess> process(g_subprocess_newv(
        ArgumentPointers(command).data(), static_cast<GSubprocessFlags>(silent), nullptr));
    if (!process)
        return onEnd(false);
    GSubprocess* running = process.get();
    TSource limit = RunAfter(RunLimitMs, [=] { g_subprocess_force_exit(running); });
    g_subprocess_wait_check_async(running, nullptr, OnRunEnd,
                                  new TRun{std::move(process), std::move(onEnd), std::move(limit)});
}

bool HasProgram(const std::string& name)
{
    return TGText(g_find_program_in_path(name.c_str())) != nullptr;
}

namespace
{

// `process`: null where nobody waits for its end.
bool Start(const std::vector<std::string>& command, int flags, GPid* process)
{
    const TOrdinaryPriority priority;
    return g_spawn_async(
               nullptr, ArgumentPointers(command).data(), nullptr,
               static_cast<GSpawnFlags>(flags | G_SPAWN_SEARCH_PATH), [](gpointer) { setsid(); },
               nullptr, process, nullptr) != FALSE;
}

} // namespace

bool StartProgram(const std::vector<std::string>& command)
{
    return Start(command, G_SPAWN_DEFAULT, nullptr);
}

bool StartProgramAndLook(const std::vector<std::string>& command)
{
    GPid process = 0;
    if (!Start(command, G_SPAWN_DO_NOT_REAP_CHILD, &process))
        return false;
    constexpr int looks = 50;
    constexpr gulong pauseMicroseconds = 20'000;
    for (int i = 0; i < looks; ++i) {
        int status = 0;
        if (waitpid(process, &status, WNOHANG) == process)
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        g_usleep(pauseMicroseconds);
    }
    g_child_watch_add(
        process, [](GPid ended, gint, gpointer) { g_spawn_close_pid(ended); }, nullptr);
    return true;
}

int StartSilentProgram(const std::vector<std::string>& command, std::function<void()> onEnd)
{
    constexpr auto flags =
        G_SPAWN_DO_NOT_REAP_CHILD | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL;
    GPid process = 0;
    if (!Start(command, flags, &process))
        return 0;
    g_child_watch_add_full(
        G_PRIORITY_DEFAULT, process,
        [](GPid ended, gint, gpointer data) {
            g_spawn_close_pid(ended);
            NoThrow(*static_cast<std::function<void()>*>(data));
        },
        new std::function<void()>(std::move(onEnd)),
        [](gpointer data) { delete static_cast<std::function<void()>*>(data); });
    return process;
}

} // namespace murala
