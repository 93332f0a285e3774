#include "uMessageLoop.h"
#include "uWork.h"

namespace murala
{

namespace
{

constexpr guint LongestWaitMs = 50;

class TLinuxMessageLoop : public TMessageLoop
{
public:
    std::int64_t Milliseconds() override { return g_get_monotonic_time() / 1000; }
    void Sleep(int milliseconds) override { g_usleep(static_cast<gulong>(milliseconds) * 1000U); }

    // The timer ends the wait when no message comes.
    void HandleOneMessage() override
    {
        const TSource limit = RunEvery(LongestWaitMs, [] { return true; });
        g_main_context_iteration(nullptr, TRUE);
    }

    void HandlePendingMessages() override
    {
        while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
        }
    }
};

} // namespace

std::unique_ptr<TMessageLoop> NewMessageLoop()
{
    return std::make_unique<TLinuxMessageLoop>();
}

} // namespace murala
