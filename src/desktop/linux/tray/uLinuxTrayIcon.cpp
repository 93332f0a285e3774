// The icon as a StatusNotifierItem: an object on the session's bus, which a watcher knows and hosts
// (panels) show. Nothing here waits for the bus.
#include "uBusExport.h"
#include "uDBusMenu.h"
#include "uSessionBus.h"
#include "uTrayIcon.h"

#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace murala
{

namespace
{

constexpr const char* Watcher = "org.kde.StatusNotifierWatcher";
constexpr const char* WatcherPath = "/StatusNotifierWatcher";
constexpr const char* ItemPath = "/StatusNotifierItem";
constexpr const char* MenuPath = "/MenuBar";
constexpr int TimeLimitMs = 3000;
constexpr int AskAgainMs = 3000;

constexpr const char* Introspection = R"xml(<node><interface name="org.kde.StatusNotifierItem">
<property name="Category" type="s" access="read"/>
<property name="Id" type="s" access="read"/>
<property name="Title" type="s" access="read"/>
<property name="Status" type="s" access="read"/>
<property name="WindowId" type="i" access="read"/>
<property name="IconName" type="s" access="read"/>
<property name="IconPixmap" type="a(iiay)" access="read"/>
<property name="OverlayIconName" type="s" access="read"/>
<property name="AttentionIconName" type="s" access="read"/>
<property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
<property name="ItemIsMenu" type="b" access="read"/>
<property name="Menu" type="o" access="read"/>
<method name="ContextMenu"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
<method name="Activate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
<method name="SecondaryActivate"><arg type="i" direction="in"/><arg type="i" direction="in"/>
</method>
<method name="Scroll"><arg type="i" direction="in"/><arg type="s" direction="in"/></method>
<signal name="NewIcon"/>
<signal name="NewToolTip"/>
<signal name="NewStatus"><arg type="s"/></signal>
</interface></node>)xml";

// Opacity, red, green, blue.
GVariant* Pixels(const TBitmap& picture)
{
    const std::size_t size =
        sizeof(TPixel) * static_cast<std::size_t>(picture.Width()) * picture.Height();
    auto* bytes = static_cast<guint8*>(g_malloc(size));
    guint8* to = bytes;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x, to += sizeof(TPixel)) {
            const TPixel pixel = GUINT32_TO_BE(picture.Row(y)[x]);
            std::memcpy(to, &pixel, sizeof pixel);
        }
    return g_variant_new_from_data(G_VARIANT_TYPE("ay"), bytes, size, TRUE, g_free, bytes);
}

GVariant* Pixmaps(const TIconImage* image)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a(iiay)"));
    if (image != nullptr)
        for (const TBitmap& picture : *image)
            g_variant_builder_add(&builder, "(ii@ay)", picture.Width(), picture.Height(),
                                  Pixels(picture));
    return g_variant_builder_end(&builder);
}

class TNotifierItem : public TTrayArea
{
public:
    TNotifierItem() : m_cancel(g_cancellable_new())
    {
        if (!HasSessionBus())
            return;
        m_state = TTrayState::Asking;
        g_bus_get(G_BUS_TYPE_SESSION, m_cancel.get(), OnBus, this);
    }
    TNotifierItem(const TNotifierItem&) = delete;
    TNotifierItem& operator=(const TNotifierItem&) = delete;
    ~TNotifierItem() override
    {
        g_cancellable_cancel(m_cancel.get());
        DoNotAskAgain();
        TNotifierItem::Remove();
        if (m_watch != 0)
            g_bus_unwatch_name(m_watch);
        if (m_signals != 0)
            g_dbus_connection_signal_unsubscribe(m_bus.get(), m_signals);
    }

    void Listen(TTrayEvents* events) override { m_events = events; }
    TTrayState State() override { return m_state; }

    bool Add(const TTrayLook& look) override
    {
        m_look = look;
        if (m_state != TTrayState::There || !Export())
            return false;
        m_isRegistered = true; // until the watcher says otherwise
        g_dbus_connection_call(
            m_bus.get(), Watcher, WatcherPath, Watcher, "RegisterStatusNotifierItem",
            g_variant_new("(s)", g_dbus_connection_get_unique_name(m_bus.get())), nullptr,
            G_DBUS_CALL_FLAGS_NO_AUTO_START, TimeLimitMs, m_cancel.get(), OnRegistered, this);
        return true;
    }

    bool Modify(const TTrayLook& look) override
    {
        if (!m_isRegistered)
            return false;
        const bool isNewHint = look.Hint != m_look.Hint, isNewIcon = look.Icon != m_look.Icon;
        m_look = look;
        if (isNewIcon)
            m_object->Tell("NewIcon");
        if (isNewHint)
            m_object->Tell("NewToolTip");
        return true;
    }

    // The watcher sees that the object's owner leaves; while the program goes on, the object is
    // passive, too.
    void Remove() override
    {
        m_isRegistered = false;
        m_menu.reset();
        m_object.reset();
    }

    bool TellMenu(TTrayModel& model) override
    {
        if (m_menu)
            m_menu->Tell(model);
        return true;
    }

private:
    bool Export()
    {
        static const GDBusInterfaceVTable table{OnCall, OnGet, nullptr, {}};
        if (!m_object || !m_object->IsThere())
            m_object.emplace(m_bus.get(), ItemPath, Introspection, table, this);
        if (m_object->IsThere() && !m_menu)
            m_menu.emplace(m_bus.get(), MenuPath, *m_events);
        return m_object->IsThere();
    }

    void Become(TTrayState state)
    {
        m_state = state;
        if (m_events != nullptr)
            NoThrow([this] { m_events->TrayAreaChanged(); });
    }

    // Whether the watcher has a host, so that an icon is shown.
    void AskForHost()
    {
        g_dbus_connection_call(
            m_bus.get(), Watcher, WatcherPath, "org.freedesktop.DBus.Properties", "Get",
            g_variant_new("(ss)", Watcher, "IsStatusNotifierHostRegistered"), G_VARIANT_TYPE("(v)"),
            G_DBUS_CALL_FLAGS_NO_AUTO_START, TimeLimitMs, m_cancel.get(), OnHost, this);
    }

    // Plasma's watcher does not tell when a host comes, and a busy one may not answer in time.
    void AskAgainLater()
    {
        const auto ask = +[](gpointer data) -> gboolean {
            auto* self = static_cast<TNotifierItem*>(data);
            self->m_askAgain = 0;
            self->AskForHost();
            return G_SOURCE_REMOVE;
        };
        DoNotAskAgain();
        m_askAgain = g_timeout_add(AskAgainMs, ask, this);
    }
    void DoNotAskAgain()
    {
        if (const guint timer = std::exchange(m_askAgain, 0); timer != 0)
            g_source_remove(timer);
    }

    // What a call was answered; null when it failed. False when `self` is gone.
    static bool Finish(GObject* bus, GAsyncResult* result, TVariant& answer)
    {
        GError* failed = nullptr;
        answer.reset(g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, &failed));
        const std::unique_ptr<GError, TFreeBy<g_error_free>> error(failed);
        return !error || !g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED);
    }

    static void OnBus(GObject*, GAsyncResult* result, gpointer data)
    {
        GError* failed = nullptr;
        GDBusConnection* bus = g_bus_get_finish(result, &failed);
        const std::unique_ptr<GError, TFreeBy<g_error_free>> error(failed);
        if (error && g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED))
            return;
        auto* self = static_cast<TNotifierItem*>(data);
        if (bus == nullptr)
            return self->Become(TTrayState::Missing);
        self->m_bus.reset(bus);
        // A bus that goes away must not take the program with it.
        g_dbus_connection_set_exit_on_close(bus, FALSE);
        self->m_signals =
            g_dbus_connection_signal_subscribe(bus, Watcher, Watcher, nullptr, WatcherPath, nullptr,
                                               G_DBUS_SIGNAL_FLAGS_NONE, OnSignal, self, nullptr);
        self->m_watch = g_bus_watch_name_on_connection(bus, Watcher, G_BUS_NAME_WATCHER_FLAGS_NONE,
                                                       OnAppeared, OnVanished, self, nullptr);
    }

    static void OnAppeared(GDBusConnection*, const char*, const char*, gpointer data)
    {
        auto* self = static_cast<TNotifierItem*>(data);
        self->m_hasWatcher = true;
        self->m_isRegistered = false;
        self->m_state = TTrayState::Asking;
        self->AskForHost();
    }

    static void OnVanished(GDBusConnection*, const char*, gpointer data)
    {
        auto* self = static_cast<TNotifierItem*>(data);
        self->m_hasWatcher = self->m_isRegistered = false;
        self->DoNotAskAgain();
        self->Become(TTrayState::Missing);
    }

    static void OnSignal(GDBusConnection*, const char*, const char*, const char*,
                         const char* signal, GVariant*, gpointer data)
    {
        if (std::string_view(signal).starts_with("StatusNotifierHost"))
            static_cast<TNotifierItem*>(data)->AskForHost();
    }

    static void OnHost(GObject* bus, GAsyncResult* result, gpointer data)
    {
        TVariant answer;
        if (!Finish(bus, result, answer))
            return;
        GVariant* value = nullptr;
        if (answer)
            g_variant_get(answer.get(), "(v)", &value);
        const TVariant owned(value);
        const bool hasHost = owned && g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN) &&
                             g_variant_get_boolean(value) != FALSE;
        auto* self = static_cast<TNotifierItem*>(data);
        if (!hasHost) {
            self->m_isRegistered = false;
            if (self->m_hasWatcher)
                self->AskAgainLater();
        }
        const TTrayState state = hasHost ? TTrayState::There : TTrayState::Missing;
        if (hasHost || self->m_state != state)
            self->Become(state);
    }

    static void OnRegistered(GObject* bus, GAsyncResult* result, gpointer data)
    {
        TVariant answer;
        // Refused, it is tried again with the next refreshing.
        if (Finish(bus, result, answer) && !answer)
            static_cast<TNotifierItem*>(data)->m_isRegistered = false;
    }

    static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* call, gpointer data)
    {
        TTrayEvents* events = static_cast<TNotifierItem*>(data)->m_events;
        TPoint point;
        if (g_variant_is_of_type(arguments, G_VARIANT_TYPE("(ii)")))
            g_variant_get(arguments, "(ii)", &point.X, &point.Y);
        // The host need not wait for what the click does.
        g_dbus_method_invocation_return_value(call, nullptr);
        if (events == nullptr)
            return;
        NoThrow([&] {
            if (std::strcmp(method, "Activate") == 0)
                events->TrayLeftClick();
            else if (std::strcmp(method, "ContextMenu") == 0)
                events->TrayRightClick(point);
        });
    }

    static GVariant* OnGet(GDBusConnection*, const char*, const char*, const char*,
                           const char* property, GError** error, gpointer data)
    {
        GVariant* value = nullptr;
        NoThrow([&] { value = Value(static_cast<TNotifierItem*>(data)->m_look, property); });
        if (value == nullptr)
            g_set_error_literal(error, G_IO_ERROR, G_IO_ERROR_FAILED, "There is no memory for it.");
        return value;
    }

    static GVariant* Value(const TTrayLook& look, std::string_view name)
    {
        if (name == "IconPixmap")
            return Pixmaps(look.Icon.get());
        if (name == "ToolTip") {
            const TGText hint(g_utf8_make_valid(ShortHint(look.Hint).c_str(), -1));
            return g_variant_new("(s@a(iiay)ss)", "", Pixmaps(nullptr), hint.get(), "");
        }
        if (name == "WindowId")
            return g_variant_new_int32(0);
        if (name == "ItemIsMenu")
            return g_variant_new_boolean(FALSE);
        if (name == "Menu")
            return g_variant_new_object_path(MenuPath);
        static const std::map<std::string_view, const char*> texts{
            {"Category", "ApplicationStatus"},
            {"Id", "murala"},
            {"Title", "Murala"},
            {"Status", "Active"}};
        const auto text = texts.find(name);
        return g_variant_new_string(text != texts.end() ? text->second : "");
    }

    TGObject<GCancellable> m_cancel;
    TGObject<GDBusConnection> m_bus;
    TTrayEvents* m_events = nullptr;
    TTrayState m_state = TTrayState::Missing;
    TTrayLook m_look;
    std::optional<TBusExport> m_object;
    std::optional<TDBusMenu> m_menu;
    bool m_hasWatcher = false;
    bool m_isRegistered = false; // with the present watcher
    guint m_watch = 0, m_signals = 0, m_askAgain = 0;
};

} // namespace

std::unique_ptr<TTrayArea> NewTrayArea()
{
    return std::make_unique<TNotifierItem>();
}

} // namespace murala
