#include "uTestSession.h"
#include "uTrayIcon.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
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
    TTrayArea* Area = nullptr;
    TMenuItem Menu; // set when the menu opens
    void TrayLeftClick() override { Told.emplace_back("left"); }
    void TrayRightClick(TPoint at) override
    {
        Told.push_back("right " + std::to_string(at.X) + ' ' + std::to_string(at.Y));
    }
    void TrayMenuOpens() override
    {
        Told.emplace_back("opens");
        Area->SetMenu(Menu);
    }
    void TrayMenuChosen(const std::string& name) override { Told.push_back("chosen " + name); }
    void TrayAreaChanged() override { Told.emplace_back("changed"); }
};

TMenuItem Entry(const char* name, const char* caption)
{
    TMenuItem item;
    item.Name = name;
    item.Caption = caption;
    return item;
}

TTrayLook Look(const char* hint)
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
        m_events.Area = m_area.get();
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

} // namespace

TEST(NotifierItemAlone, WithoutABusThereIsNoTray)
{
    const TTestSession session;
    const auto area = NewTrayArea();
    EXPECT_EQ(area->State(), TTrayState::Missing);
    EXPECT_FALSE(area->Add(Look("hint")));
    EXPECT_FALSE(area->Modify(Look("hint")));
    area->Remove();
}

TEST_F(NotifierItem, FollowsTheWatcherAndItsHosts)
{
    Start();
    EXPECT_EQ(m_area->State(), TTrayState::Asking);
    EXPECT_FALSE(m_area->Add(Look("hint")));
    EXPECT_TRUE(Becomes(TTrayState::Missing));
    {
        TTestWatcher watcher;
        EXPECT_TRUE(Becomes(TTrayState::There));
        EXPECT_FALSE(m_area->Modify(Look("hint"))); // never added
        EXPECT_TRUE(m_area->Add(Look("hint")));
        EXPECT_TRUE(Eventually([&] { return watcher.Items.size() == 1; }));
        EXPECT_TRUE(m_area->Modify(Look("other")));
        watcher.TellHost(false);
        EXPECT_TRUE(Becomes(TTrayState::Missing));
        EXPECT_FALSE(m_area->Modify(Look("other")));
        watcher.TellHost(true);
        EXPECT_TRUE(Becomes(TTrayState::There));
        watcher.TellHost(false);
        EXPECT_TRUE(Becomes(TTrayState::Missing));
        watcher.HasHost = true; // not every watcher tells
        EXPECT_TRUE(Becomes(TTrayState::There));
    }
    EXPECT_TRUE(Becomes(TTrayState::Missing));
    EXPECT_EQ(m_events.Told.back(), "changed");
    TTestWatcher restarted;
    restarted.Refuses = true;
    EXPECT_TRUE(Becomes(TTrayState::There));
    EXPECT_FALSE(m_area->Modify(Look("hint"))); // it does not know the icon
    m_area->Add(Look("hint"));
    EXPECT_TRUE(Eventually([&] { return !m_area->Modify(Look("hint")); })); // refused
    restarted.Refuses = false;
    EXPECT_TRUE(m_area->Add(Look("hint")));
    EXPECT_TRUE(Eventually([&] { return restarted.Items.size() == 1; }));
    EXPECT_TRUE(m_area->Modify(Look("hint")));
}

TEST_F(NotifierItem, ShowsPictureAndHintAndTellsOfClicks)
{
    TTestWatcher watcher;
    Start();
    ASSERT_TRUE(Becomes(TTrayState::There));
    m_area->Add(Look("A\xFF (b)"));
    ASSERT_TRUE(Eventually([&] { return !watcher.Items.empty(); }));
    const auto text = [&](const char* property) {
        const TVariant value = watcher.Property(property);
        const TGText printed(value ? g_variant_print(value.get(), FALSE) : g_strdup("nothing"));
        return std::string(printed.get());
    };
    EXPECT_EQ(text("IconPixmap"), "[(1, 2, [0x80, 0x11, 0x22, 0x33, 0xff, 0x44, 0x55, 0x66])]");
    EXPECT_EQ(text("ToolTip"), "('', [], 'A\xEF\xBF\xBD (b)', '')");
    std::string name;
    for (int i = 0; i < 180; ++i)
        name += "\xC3\xA4";
    m_area->Modify(Look(("Murala (" + name + ".jpg)").c_str()));
    EXPECT_EQ(text("ToolTip"), "('', [], 'Murala (" + name.substr(0, 62) + "\xE2\x80\xA6" +
                                   name.substr(0, 70) + ".jpg)', '')");
    EXPECT_EQ(text("Status"), "'Active'");
    EXPECT_EQ(text("Menu"), "'/MenuBar'");
    EXPECT_EQ(text("ItemIsMenu"), "false");
    m_events.Told.clear();
    watcher.Item("Activate", g_variant_new("(ii)", 3, 4));
    watcher.Item("ContextMenu", g_variant_new("(ii)", 30, 40));
    watcher.Item("SecondaryActivate", g_variant_new("(ii)", 3, 4));
    watcher.Item("Scroll", g_variant_new("(is)", 3, "vertical"));
    EXPECT_EQ(m_events.Told, (TWords{"left", "right 30 40"}));
    m_area->Remove();
    EXPECT_FALSE(watcher.Property("Status"));
    m_area.reset(); // while an answer may be on its way
}

class NotifierMenu : public NotifierItem
{
protected:
    NotifierMenu()
    {
        Start();
        EXPECT_TRUE(Becomes(TTrayState::There));
        m_area->Add(Look("hint"));
        EXPECT_TRUE(Eventually([&] { return !m_watcher.Items.empty(); }));
        m_menu.Items = {Entry("a", "&Next && _x\xFF"), Entry("", "-"), Entry("below", "Wallpaper")};
        m_menu.Items[2].Items = {Entry("CategoryMenuItem0", "One"),
                                 Entry("CategoryMenuItem1", "Two")};
    }

    std::string Called(const char* method, GVariant* arguments)
    {
        const TVariant answer = m_watcher.Menu(method, arguments);
        const TGText text(answer ? g_variant_print(answer.get(), FALSE) : g_strdup("refused"));
        return text.get();
    }
    std::string Layout(gint32 number = 0, int depth = -1, std::vector<const char*> wanted = {})
    {
        return Called("GetLayout",
                      g_variant_new("(ii@as)", number, depth,
                                    g_variant_new_strv(wanted.data(), gssize(wanted.size()))));
    }
    // The number of the entry with this caption, as the desktop was told it.
    gint32 NumberOf(const std::string& caption)
    {
        const std::string layout = Layout();
        const std::size_t found = layout.find('\'' + caption + '\'');
        if (found == std::string::npos)
            return -1;
        return std::stoi(layout.substr(layout.rfind('(', found) + 1));
    }
    std::string Click(gint32 number)
    {
        return Called("Event",
                      g_variant_new("(isvu)", number, "clicked", g_variant_new_int32(0), 0));
    }

    TTestWatcher m_watcher;
    TMenuItem m_menu;
};

TEST_F(NotifierMenu, EachLevelIsToldAsFarAsItIsAskedFor)
{
    m_menu.Items[0].Enabled = false;
    m_menu.Items[2].Items[1].Checked = true;
    m_area->SetMenu(m_menu);
    const std::string one = "<(4, {'label': <'One'>}, @av [])>";
    const std::string two =
        "<(5, {'label': <'Two'>, 'toggle-type': <'checkmark'>, 'toggle-state': <1>}, @av [])>";
    const std::string below = "(3, {'label': <'Wallpaper'>, 'children-display': <'submenu'>}, ";
    const std::string first = "(2, (0, {'children-display': <'submenu'>}, ["
                              "<(1, {'label': <'_Next & __x\xEF\xBF\xBD'>, 'enabled': <false>}, "
                              "@av [])>, <(2, {'type': <'separator'>}, @av [])>, <" +
                              below;
    EXPECT_EQ(Layout(), first + '[' + one + ", " + two + "])>]))");
    EXPECT_EQ(Layout(0, 1), first + "@av [])>]))");
    EXPECT_EQ(Layout(3, 1), "(2, " + below + '[' + one + ", " + two + "]))");
    EXPECT_EQ(Layout(5, -1, {"toggle-state", "type"}), "(2, (5, {'toggle-state': <1>}, []))");
    EXPECT_EQ(Layout(6), "refused");
    const gint32 asked[] = {1, 77, 4};
    EXPECT_EQ(Called("GetGroupProperties",
                     g_variant_new("(@aias)",
                                   g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, asked, 3, 4),
                                   nullptr)),
              "([(1, {'label': <'_Next & __x\xEF\xBF\xBD'>, 'enabled': <false>}), "
              "(4, {'label': <'One'>})],)");
    EXPECT_EQ(Called("GetProperty", g_variant_new("(is)", 5, "label")), "(<'Two'>,)");
    EXPECT_EQ(Called("GetProperty", g_variant_new("(is)", 5, "enabled")), "refused");
}

TEST_F(NotifierMenu, NamesHaveTheirAmpersandAndAnEmptyOneIsABlank)
{
    m_menu.Items[0].Caption.clear();
    m_menu.Items[2].Caption = "Sea & Land_";
    m_menu.Items[2].IsPlain = true;
    m_area->SetMenu(m_menu);
    EXPECT_EQ(NumberOf(" "), 1);
    EXPECT_EQ(NumberOf("Sea & Land__"), 3);
}

TEST_F(NotifierMenu, StatesChangeInPlaceAndWhatIsGoneKeepsItsNumber)
{
    TWords told;
    const auto listen = [](GDBusConnection*, const char*, const char*, const char*,
                           const char* signal, GVariant* arguments, gpointer to) {
        const TGText text(g_variant_print(arguments, FALSE));
        static_cast<TWords*>(to)->push_back(std::string(signal) + text.get());
    };
    const guint listening = g_dbus_connection_signal_subscribe(
        m_watcher.Bus(), nullptr, "com.canonical.dbusmenu", nullptr, "/MenuBar", nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE, listen, &told, nullptr);
    m_menu.Items[2].Items[1].Enabled = false;
    m_area->SetMenu(m_menu);
    m_area->SetMenu(m_menu); // nothing to tell
    m_menu.Items[2].Items[0].Enabled = false;
    m_menu.Items[2].Items[1].Enabled = true;
    m_area->SetMenu(m_menu);
    m_menu.Items[2].Items[1].Checked = true; // not every panel can turn an entry into a checked one
    m_area->SetMenu(m_menu);
    EXPECT_TRUE(Eventually([&] { return told.size() == 3; }));
    EXPECT_EQ(told[0], "LayoutUpdated(2, 0)");
    EXPECT_EQ(told[1], "ItemsPropertiesUpdated([(4, {'label': <'One'>, 'enabled': <false>}), (5, "
                       "{'label': <'Two'>})], [(5, ['enabled'])])");
    EXPECT_EQ(told[2], "LayoutUpdated(3, 0)");

    // The menu is renewed when it opens: what is gone keeps its number, and what is still there,
    // too, whatever it is called by now.
    const gint32 gone = NumberOf("One"), still = NumberOf("Two"), parent = NumberOf("Wallpaper");
    m_events.Menu = m_menu;
    m_events.Menu.Items.erase(m_events.Menu.Items.begin());
    m_events.Menu.Items[1].Items = {Entry("CategoryMenuItem0", "Three"),
                                    Entry("CategoryMenuItem7", "Two")};
    m_events.Menu.Items[1].Items[1].Checked = true;
    m_events.Told.clear();
    const TVariant both(g_variant_ref_sink(g_variant_new_parsed("[0, 99]")));
    EXPECT_EQ(Called("AboutToShow", g_variant_new("(i)", gone)), "(false,)");
    EXPECT_TRUE(m_events.Told.empty());
    EXPECT_EQ(Called("AboutToShowGroup", g_variant_new("(@ai)", both.get())), "([], [99])");
    EXPECT_EQ(m_events.Told, TWords{"opens"});
    EXPECT_EQ(Called("AboutToShow", g_variant_new("(i)", 0)), "(false,)");
    EXPECT_TRUE(Eventually([&] { return told.back() == "LayoutUpdated(4, 0)"; }));
    // Plasma asks for the menu itself, and not for those below.
    Layout(0, 1);
    EXPECT_EQ(Called("AboutToShow", g_variant_new("(i)", parent)), "(true,)");
    EXPECT_EQ(Called("AboutToShow", g_variant_new("(i)", parent)), "(false,)");
    EXPECT_EQ(NumberOf("Two"), still);
    EXPECT_EQ(NumberOf("Wallpaper"), parent);
    EXPECT_GT(NumberOf("Three"), std::max(gone, still));
    m_events.Told.clear();
    EXPECT_EQ(Click(gone), "refused");
    EXPECT_EQ(Click(parent), "()"); // opens what is below it
    EXPECT_EQ(Click(still), "()");
    EXPECT_TRUE(Eventually([&] { return !m_events.Told.empty(); }));
    EXPECT_EQ(m_events.Told, TWords{"chosen CategoryMenuItem7"});
    const std::string events = "[(" + std::to_string(NumberOf("Three")) +
                               ", 'clicked', <0>, uint32 0), (0, 'closed', <0>, 0), "
                               "(99, 'clicked', <0>, 0)]";
    const TVariant group(
        g_variant_parse(G_VARIANT_TYPE("a(isvu)"), events.c_str(), nullptr, nullptr, nullptr));
    EXPECT_EQ(Called("EventGroup", g_variant_new("(@a(isvu))", group.get())), "([99],)");
    EXPECT_EQ(m_events.Told.back(), "chosen CategoryMenuItem0");
    g_dbus_connection_signal_unsubscribe(m_watcher.Bus(), listening);
}

// Some desktops make something of every entry that they are told.
class LargeNotifierMenu : public NotifierMenu
{
protected:
    static constexpr int Menus = 20, Entries = 40;
    LargeNotifierMenu()
    {
        m_menu.Items[2].Items.assign(Menus, Entry("", "Category"));
        for (TMenuItem& category : m_menu.Items[2].Items)
            category.Items.assign(Entries, Entry("CategoryMenuItem1", "One"));
        m_events.Menu = m_menu;
        m_area->SetMenu(m_menu);
        Wallpapers = NumberOf("Wallpaper");
        Category = NumberOf("Category");
    }
    static int EntriesOf(const std::string& layout)
    {
        int count = 0;
        for (std::size_t at = 0; (at = layout.find("<(", at)) != std::string::npos; ++at)
            ++count;
        return count;
    }
    std::string Show(gint32 number) { return Called("AboutToShow", g_variant_new("(i)", number)); }

    gint32 Wallpapers, Category;
};

// GNOME's extension asks for all of it at once, and reads labels by themselves.
TEST_F(LargeNotifierMenu, IsToldAsItIsShownWhereLabelsAreReadByThemselves)
{
    const auto entries = [this] { return EntriesOf(Layout(0, -1, {"children-display"})); };
    EXPECT_EQ(Show(Category), "(false,)"); // a desktop that knows all of it
    EXPECT_EQ(EntriesOf(Layout(0, -1, {"label", "children-display"})), 3 + Menus + Menus * Entries);
    EXPECT_EQ(entries(), 3 + Menus + Menus * 10);
    EXPECT_EQ(Show(0), "(false,)");
    EXPECT_EQ(Show(Wallpapers), "(true,)");
    EXPECT_EQ(entries(), 3 + Menus + Menus * 10);
    EXPECT_EQ(Show(Category), "(true,)");
    EXPECT_EQ(Show(Category), "(false,)");
    EXPECT_EQ(entries(), 3 + Menus + (Menus - 1) * 10 + Entries);
    // What is told again would be made anew, closed.
    EXPECT_EQ(Layout(Category, -1, {"children-display"}).find("submenu"), std::string::npos);
}

// Those of Qt ask for each menu by itself, with all properties each time.
TEST_F(LargeNotifierMenu, IsToldAsItIsShownWhereMenusAreAskedForByThemselves)
{
    EXPECT_EQ(EntriesOf(Layout(0, 1)), 3);
    EXPECT_EQ(EntriesOf(Layout(Wallpapers, 1)), 1);
    EXPECT_EQ(Show(0), "(false,)");
    EXPECT_EQ(Show(Wallpapers), "(true,)");
    EXPECT_EQ(EntriesOf(Layout(Wallpapers, 1)), Menus);
    EXPECT_EQ(EntriesOf(Layout(Category, 1)), 1);
    const TVariant both(g_variant_ref_sink(g_variant_new_parsed("[%i, 0]", Category)));
    EXPECT_EQ(Called("AboutToShowGroup", g_variant_new("(@ai)", both.get())),
              "([" + std::to_string(Category) + "], [])");
    EXPECT_EQ(EntriesOf(Layout(Category, 1)), Entries);
    EXPECT_NE(Layout(Category, 1).find("'One'"), std::string::npos);
}

// The bus ends the connection of a program whose messages are nested deeper than 64 times.
TEST_F(NotifierMenu, ThatIsNestedDeeplyStillGetsThrough)
{
    TMenuItem* deepest = &m_menu.Items[2];
    for (int i = 0; i < 40; ++i) {
        deepest->Items = {Entry("MoreCategoryMenuItem", ("More " + std::to_string(i)).c_str())};
        deepest = &deepest->Items.front();
    }
    m_area->SetMenu(m_menu);
    m_events.Told.clear();
    const gint32 last = NumberOf("More 16");
    EXPECT_EQ(NumberOf("More 17"), -1);
    EXPECT_EQ(Layout(last).find("submenu"), std::string::npos);
    EXPECT_EQ(Click(last), "()");
    EXPECT_TRUE(Eventually([&] { return !m_events.Told.empty(); }));
    EXPECT_EQ(m_events.Told, TWords{"chosen MoreCategoryMenuItem"});
}
