// The tray's icon on a session's bus of its own, and the notifier watcher that shows it.
#pragma once

#include "uTestSession.h"
#include "uTrayIcon.h"

#include <gtest/gtest.h>

namespace murala
{

// The notifier watcher of a desktop, on a connection of its own.
class TTestWatcher
{
public:
    bool HasHost = true;
    bool Refuses = false;
    TWords Items;

    TTestWatcher()
    {
        constexpr auto flags = G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                               G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION;
        m_bus.reset(g_dbus_connection_new_for_address_sync(std::getenv("DBUS_SESSION_BUS_ADDRESS"),
                                                           static_cast<GDBusConnectionFlags>(flags),
                                                           nullptr, nullptr, nullptr));
        constexpr const char* xml = "<node><interface name='org.kde.StatusNotifierWatcher'>"
                                    "<method name='RegisterStatusNotifierItem'>"
                                    "<arg type='s' direction='in'/></method>"
                                    "<property name='IsStatusNotifierHostRegistered' type='b' "
                                    "access='read'/></interface></node>";
        static const GDBusInterfaceVTable table{OnCall, OnGet, nullptr, {}};
        GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(xml, nullptr);
        g_dbus_connection_register_object(m_bus.get(), "/StatusNotifierWatcher",
                                          node->interfaces[0], &table, this, nullptr, nullptr);
        g_dbus_node_info_unref(node);
        const TVariant named(g_dbus_connection_call_sync(
            m_bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "RequestName", g_variant_new("(su)", "org.kde.StatusNotifierWatcher", 0), nullptr,
            G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
        EXPECT_TRUE(named);
    }
    ~TTestWatcher() { g_dbus_connection_close_sync(m_bus.get(), nullptr, nullptr); }

    GDBusConnection* Bus() const { return m_bus.get(); }
    void TellHost(bool hasHost)
    {
        HasHost = hasHost;
        g_dbus_connection_emit_signal(
            m_bus.get(), nullptr, "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
            hasHost ? "StatusNotifierHostRegistered" : "StatusNotifierHostUnregistered", nullptr,
            nullptr);
    }

    // What the first item answers; null for an error. Both ends are in this thread.
    TVariant Call(const char* path, const char* interface, const char* method, GVariant* arguments)
    {
        struct TAnswerSlot {
            TVariant Answer;
            bool IsThere = false;
        } slot;
        g_dbus_connection_call(
            m_bus.get(), Items.front().c_str(), path, interface, method, arguments, nullptr,
            G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
            [](GObject* bus, GAsyncResult* result, gpointer data) {
                auto* to = static_cast<TAnswerSlot*>(data);
                to->Answer.reset(
                    g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr));
                to->IsThere = true;
            },
            &slot);
        EXPECT_TRUE(Eventually([&] { return slot.IsThere; }));
        return std::move(slot.Answer);
    }
    TVariant Item(const char* method, GVariant* arguments)
    {
        return Call("/StatusNotifierItem", "org.kde.StatusNotifierItem", method, arguments);
    }
    TVariant Property(const char* name)
    {
        const TVariant answer =
            Call("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                 g_variant_new("(ss)", "org.kde.StatusNotifierItem", name));
        GVariant* value = nullptr;
        if (answer)
            g_variant_get(answer.get(), "(v)", &value);
        return TVariant(value);
    }
    TVariant Menu(const char* method, GVariant* arguments)
    {
        return Call("/MenuBar", "com.canonical.dbusmenu", method, arguments);
    }

private:
    static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char*,
                       GVariant* arguments, GDBusMethodInvocation* call, gpointer data)
    {
        auto* self = static_cast<TTestWatcher*>(data);
        if (self->Refuses)
            return g_dbus_method_invocation_return_dbus_error(call, "org.example.No", "no");
        const char* name = nullptr;
        g_variant_get(arguments, "(&s)", &name);
        self->Items.emplace_back(name);
        g_dbus_method_invocation_return_value(call, nullptr);
    }
    static GVariant* OnGet(GDBusConnection*, const char*, const char*, const char*, const char*,
                           GError**, gpointer data)
    {
        return g_variant_new_boolean(static_cast<TTestWatcher*>(data)->HasHost);
    }

    TGObject<GDBusConnection> m_bus;
};

struct TTestEvents : TTrayEvents {
    TWords Told;
    std::vector<TMenuTarget> Chosen;
    std::function<void()> OnOpens;
    void TrayLeftClick() override { Told.emplace_back("left"); }
    void TrayRightClick(TPoint at) override
    {
        Told.push_back("right " + std::to_string(at.X) + ' ' + std::to_string(at.Y));
    }
    void TrayMenuOpens() override
    {
        Told.emplace_back("opens");
        if (OnOpens)
            OnOpens();
    }
    void TrayMenuChosen(const TMenuTarget& target) override { Chosen.push_back(target); }
    void TrayAreaChanged() override { Told.emplace_back("changed"); }
};

inline TTrayLook Look(const char* hint)
{
    auto image = std::make_shared<TIconImage>();
    image->emplace_back(1, 2);
    image->front().Row(0)[0] = 0x80112233;
    image->front().Row(1)[0] = 0xFF445566;
    return {hint, image};
}

class NotifierItem : public testing::Test
{
protected:
    NotifierItem() : m_bus(m_session) {}
    // The next test's bus is another one.
    ~NotifierItem() override
    {
        m_area.reset();
        for (int i = 0; i < 20; i++, g_usleep(10000))
            while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
            }
    }

    void Start()
    {
        m_area = NewTrayArea();
        m_area->Listen(&m_events);
    }
    bool Becomes(TTrayState state)
    {
        return Eventually([&] { return m_area->State() == state; });
    }

    TTestSession m_session;
    TTestBus m_bus;
    TTestEvents m_events;
    std::unique_ptr<TTrayArea> m_area;
};

} // namespace murala
