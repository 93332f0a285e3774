#include "uDoor.h"
#include "uSessionEnd.h"
#include "uSessionManager.h"

#include <glib-unix.h>

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
    TLinuxSessionEnd() = default;
    TLinuxSessionEnd(const TLinuxSessionEnd&) = delete;
    TLinuxSessionEnd& operator=(const TLinuxSessionEnd&) = delete;
    ~TLinuxSessionEnd() override
    {
        for (const guint source : m_sources)
            if (source != 0)
                g_source_remove(source);
    }

    void Listen(void* /*mainWindow*/, std::function<void()> onEnd) override
    {
        m_onEnd = std::move(onEnd);
        for (std::size_t i = 0; i < std::size(Signals); i++)
            m_sources[i] = g_unix_signal_add(Signals[i], OnSignal, this);
        m_manager = JoinSession([this] { OnSignal(this); });
    }

private:
    static gboolean OnSignal(gpointer self)
    {
        // A second signal finds the program ending already.
        if (auto onEnd = std::exchange(static_cast<TLinuxSessionEnd*>(self)->m_onEnd, nullptr))
            NoThrow(onEnd);
        return G_SOURCE_CONTINUE;
    }

    std::function<void()> m_onEnd;
    std::unique_ptr<TSessionManager> m_manager;
    guint m_sources[std::size(Signals)] = {};
};

} // namespace

std::unique_ptr<TSessionEnd> NewSessionEnd()
{
    return std::make_unique<TLinuxSessionEnd>();
}

} // namespace murala
