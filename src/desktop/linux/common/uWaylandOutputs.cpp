#include "uWaylandOutputs.h"

#include "uSettling.h"

#include <wayland-client.h>

#include <algorithm>
#include <list>
#include <poll.h>

namespace murala
{

namespace
{

template<auto Free>
struct TWaylandFree {
    template<class T>
    void operator()(T* thing) const noexcept
    {
        Free(thing);
    }
};
template<class T, auto Free>
using TWaylandOwned = std::unique_ptr<T, TWaylandFree<Free>>;

struct TOutput {
    std::uint32_t Name = 0;
    TWaylandOwned<wl_output, wl_output_destroy> Output;
    int X = 0, Y = 0;
    bool IsTurned = false; // by a quarter, to either side
    TSize Mode;

    TSize Size() const { return IsTurned ? TSize{Mode.Height, Mode.Width} : Mode; }
};

void OnGeometry(void* data, wl_output*, std::int32_t x, std::int32_t y, std::int32_t, std::int32_t,
                std::int32_t, const char*, const char*, std::int32_t transform)
{
    auto* output = static_cast<TOutput*>(data);
    output->X = x;
    output->Y = y;
    output->IsTurned = transform % 2 != 0;
}

void OnMode(void* data, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height,
            std::int32_t)
{
    if ((flags & WL_OUTPUT_MODE_CURRENT) != 0)
        static_cast<TOutput*>(data)->Mode = {width, height};
}

void OnDone(void*, wl_output*)
{
}
void OnScale(void*, wl_output*, std::int32_t)
{
}

const wl_output_listener OutputListener = [] {
    wl_output_listener listener{};
    listener.geometry = OnGeometry;
    listener.mode = OnMode;
    listener.done = OnDone;
    listener.scale = OnScale;
    return listener;
}();
constexpr std::uint32_t OutputVersion = 2; // which has just these four events

class TConnection : public TWaylandOutputs
{
public:
    TConnection() : m_display(wl_display_connect(nullptr))
    {
        if (!m_display)
            return;
        m_registry.reset(wl_display_get_registry(m_display.get()));
        static const wl_registry_listener listener{OnGlobal, OnGlobalRemove};
        wl_registry_add_listener(m_registry.get(), &listener, this);
        wl_display_roundtrip(m_display.get()); // the outputs' names
        wl_display_roundtrip(m_display.get()); // what they say
    }

    TConnection(const TConnection&) = delete;
    TConnection& operator=(const TConnection&) = delete;

    bool IsConnected() const { return m_display && wl_display_get_error(m_display.get()) == 0; }

    std::optional<TSize> PrimarySize() override
    {
        TakeEvents();
        if (!IsConnected() || m_outputs.empty())
            return std::nullopt;
        const auto atOrigin = std::ranges::find_if(
            m_outputs, [](const TOutput& output) { return output.X == 0 && output.Y == 0; });
        const TSize size = (atOrigin != m_outputs.end() ? *atOrigin : m_outputs.front()).Size();
        return size.Width > 0 && size.Height > 0 ? std::optional(size) : std::nullopt;
    }

    std::vector<TRect> Places() override
    {
        TakeEvents();
        std::vector<TRect> places;
        for (const TOutput& output : m_outputs) {
            const TSize size = output.Size();
            places.push_back({output.X, output.Y, output.X + size.Width, output.Y + size.Height});
        }
        return places;
    }

    void Listen(std::function<void()> onChange) override
    {
        m_settling = std::make_unique<TSettling>(std::move(onChange));
        if (!m_source && IsConnected())
            m_source = RunOnData(wl_display_get_fd(m_display.get()), [this] {
                TakeEvents();
                m_settling->Begin();
                return IsConnected(); // until the compositor is gone
            });
    }

private:
    // Handles the events that have come, without waiting for more.
    void TakeEvents()
    {
        if (!IsConnected())
            return;
        while (wl_display_prepare_read(m_display.get()) != 0)
            wl_display_dispatch_pending(m_display.get());
        wl_display_flush(m_display.get());
        pollfd waiting{wl_display_get_fd(m_display.get()), POLLIN, 0};
        if (poll(&waiting, 1, 0) == 1)
            wl_display_read_events(m_display.get());
        else
            wl_display_cancel_read(m_display.get());
        wl_display_dispatch_pending(m_display.get());
    }

    static void OnGlobal(void* self, wl_registry* registry, std::uint32_t name,
                         const char* interface, std::uint32_t version)
    {
        if (std::string_view(interface) != wl_output_interface.name)
            return;
        TOutput& output = static_cast<TConnection*>(self)->m_outputs.emplace_back();
        output.Name = name;
        output.Output.reset(static_cast<wl_output*>(wl_registry_bind(
            registry, name, &wl_output_interface, std::min(version, OutputVersion))));
        wl_output_add_listener(output.Output.get(), &OutputListener, &output);
    }

    static void OnGlobalRemove(void* self, wl_registry*, std::uint32_t name)
    {
        static_cast<TConnection*>(self)->m_outputs.remove_if(
            [&](const TOutput& output) { return output.Name == name; });
    }

    TWaylandOwned<wl_display, wl_display_disconnect> m_display;
    TWaylandOwned<wl_registry, wl_registry_destroy> m_registry;
    std::list<TOutput> m_outputs; // a list, because listeners hold their addresses
    std::unique_ptr<TSettling> m_settling;
    TSource m_source;
};

} // namespace

std::unique_ptr<TWaylandOutputs> ConnectToWayland()
{
    auto connection = std::make_unique<TConnection>();
    return connection->IsConnected() ? std::move(connection) : nullptr;
}

} // namespace murala
