// Whether a screen saver or a lock hides the desktop. Each service that may do so signals a change,
// and we keep what it said last; so an answer is always at hand, and a service that hangs does not
// hold us up. Only the X server is asked each time, over a connection that is open anyway.
#include "uScreenSaver.h"

#include "uSessionBus.h"
#include "uX11.h"

#include <X11/Xatom.h>
#include <X11/extensions/scrnsaver.h>

#include <algorithm>
#include <list>

namespace murala
{

namespace
{

struct TQuestion {
    GBusType Bus;
    TBusObject Object;
    const char* Method;
    std::pair<const char*, const char*> Arguments; // null: none
    std::pair<const char*, const char*> Signal;    // its interface and name
};

constexpr TQuestion ActiveQuestion(const char* name, const char* path)
{
    return {G_BUS_TYPE_SESSION, {name, path, name}, "GetActive", {}, {name, "ActiveChanged"}};
}

constexpr TQuestion Questions[] = {
    ActiveQuestion("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver"),
    ActiveQuestion("org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"),
    ActiveQuestion("org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver"),
    ActiveQuestion("org.mate.ScreenSaver", "/org/mate/ScreenSaver"),
    ActiveQuestion("org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"),
    {G_BUS_TYPE_SYSTEM,
     {"org.freedesktop.login1", "/org/freedesktop/login1/session/auto",
      "org.freedesktop.DBus.Properties"},
     "Get",
     {"org.freedesktop.login1.Session", "LockedHint"},
     {"org.freedesktop.DBus.Properties", "PropertiesChanged"}},
};

// Keeps the answer to one question up to date, out of the main loop.
class TWatch
{
public:
    explicit TWatch(const TQuestion& question)
        : m_question(question), m_cancel(g_cancellable_new()),
          m_name(g_bus_watch_name(question.Bus, question.Object.Name, G_BUS_NAME_WATCHER_FLAGS_NONE,
                                  OnAppeared, OnVanished, this, nullptr))
    {
    }
    TWatch(const TWatch&) = delete;
    TWatch& operator=(const TWatch&) = delete;
    ~TWatch()
    {
        g_bus_unwatch_name(m_name);
        Forget();
    }

    bool IsActive() const { return m_isActive; }

private:
    static void OnAppeared(GDBusConnection* bus, const char* /*name*/, const char* /*owner*/,
                           gpointer self)
    {
        static_cast<TWatch*>(self)->Begin(bus);
    }

    static void OnVanished(GDBusConnection* bus, const char* /*name*/, gpointer self)
    {
        if (bus != nullptr) // the program must not end with the bus
            g_dbus_connection_set_exit_on_close(bus, FALSE);
        static_cast<TWatch*>(self)->Forget();
    }

    void Begin(GDBusConnection* bus)
    {
        g_dbus_connection_set_exit_on_close(bus, FALSE);
        m_bus.reset(G_DBUS_CONNECTION(g_object_ref(bus)));
        // Of any path: the session "auto" sends its signals from another one.
        m_signal = g_dbus_connection_signal_subscribe(
            bus, m_question.Object.Name, m_question.Signal.first, m_question.Signal.second, nullptr,
            m_question.Arguments.first, G_DBUS_SIGNAL_FLAGS_NONE, OnSignal, this, nullptr);
        Ask();
    }

    void Forget()
    {
        g_cancellable_cancel(m_cancel.get());
        if (m_bus)
            g_dbus_connection_signal_unsubscribe(m_bus.get(), m_signal);
        m_bus.reset();
        m_isActive = false;
    }

    static void OnSignal(GDBusConnection*, const char*, const char*, const char*, const char*,
                         GVariant*, gpointer self)
    {
        static_cast<TWatch*>(self)->Ask();
    }

    void Ask()
    {
        g_cancellable_cancel(m_cancel.get());
        m_cancel.reset(g_cancellable_new());
        const auto& [first, second] = m_question.Arguments;
        const TBusObject& object = m_question.Object;
        g_dbus_connection_call(
            m_bus.get(), object.Name, object.Path, object.Interface, m_question.Method,
            first != nullptr ? g_variant_new("(ss)", first, second) : nullptr, nullptr,
            G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, m_cancel.get(), OnAnswer, this);
    }

    static void OnAnswer(GObject* bus, GAsyncResult* result, gpointer self)
    {
        GError* error = nullptr;
        const TVariant answer(
            g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, &error));
        const std::unique_ptr<GError, TFreeBy<g_error_free>> owner(error);
        // After a cancellation this object may be gone.
        if (!g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED))
            static_cast<TWatch*>(self)->m_isActive = IsTrue(answer.get());
    }

    // A boolean, alone or in a variant.
    static bool IsTrue(GVariant* answer)
    {
        if (answer == nullptr || g_variant_n_children(answer) != 1)
            return false;
        TVariant value(g_variant_get_child_value(answer, 0));
        if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_VARIANT) != FALSE)
            value.reset(g_variant_get_variant(value.get()));
        return g_variant_is_of_type(value.get(), G_VARIANT_TYPE_BOOLEAN) != FALSE &&
               g_variant_get_boolean(value.get()) != FALSE;
    }

    const TQuestion& m_question;
    TGObject<GCancellable> m_cancel;
    TGObject<GDBusConnection> m_bus;
    guint m_signal = 0;
    bool m_isActive = false;
    guint m_name;
};

// The X server's own screen saver, or xscreensaver, which sets the first number of a property to
// something else than 0 while it hides the screen.
bool IsServerSaving(Display* display)
{
    const Window root = DefaultRootWindow(display);
    if (ReadProperty32(display, root, "_SCREENSAVER_STATUS", XA_INTEGER) != 0)
        return true;
    int ignored = 0;
    if (XScreenSaverQueryExtension(display, &ignored, &ignored) == False)
        return false;
    const TXOwned<XScreenSaverInfo> info(XScreenSaverAllocInfo());
    return info && XScreenSaverQueryInfo(display, root, info.get()) != 0 &&
           info->state == ScreenSaverOn;
}

class TLinuxScreenSaver : public TScreenSaver
{
public:
    TLinuxScreenSaver()
    {
        for (const TQuestion& question : Questions)
            if (question.Bus != G_BUS_TYPE_SESSION || HasSessionBus())
                m_watches.emplace_back(question);
    }

    bool IsRunning() override
    {
        if (std::ranges::any_of(m_watches, &TWatch::IsActive))
            return true;
        if (IsBelowWayland())
            return false;
        if (!m_display)
            m_display = SharedDisplay();
        return m_display && IsServerSaving(m_display.get());
    }

private:
    std::list<TWatch> m_watches; // a list, because their callbacks hold their addresses
    TSharedDisplay m_display;
};

} // namespace

std::unique_ptr<TScreenSaver> NewScreenSaver()
{
    return std::make_unique<TLinuxScreenSaver>();
}

} // namespace murala
