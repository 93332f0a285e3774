#include "uDoor.h"
#include "uSessionEnd.h"
#include "uSessionManager.h"
#include "uWork.h"

#include <csignal>
#include <utility>

namespace murala
{

namespace
{

constexpr int Signals[] = {SIGTERM, SIGHUP, SIGINT};

class TLinuxSessionEnd : public TSessionEnd
{
public:
    void ListenToQuestion(std::function<void()> /*onQuestion*/) override {}

    void Listen(void* /*mainWindow*/, std::function<void()> onEnd) override
    {
        m_onEnd = std::move(onEnd);
        for (std::size_t i = 0; i < std::size(Signals); i++)
            m_sources[i] = RunOnSignal(Signals[i], [this] { return End(); });
        m_manager = JoinSession([this] { End(); });
    }

private:
    bool End()
    {
        // A second signal finds the program ending already.
        if (auto onEnd = std::exchange(m_onEnd, nullptr))
            NoThrow(onEnd);
        return true;
    }

    std::function<void()> m_onEnd;
    std::unique_ptr<TSessionManager> m_manager;
    TSource m_sources[std::size(Signals)];
};

} // namespace

std::unique_ptr<TSessionEnd> NewSessionEnd()
{
    return std::make_unique<TLinuxSessionEnd>();
}

} // namespace murala
