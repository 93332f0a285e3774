#include "uTestWatcher.h"

#include <algorithm>

using namespace murala;

namespace
{

using TMenus = std::vector<std::pair<TMenuBelow, TMenuEntries>>;

// A menu that is what it is set to.
struct TTestMenu : TTrayModel {
    TMenus Menus;
    TMenuEntries Children(const TMenuBelow& menu) override
    {
        const auto found = std::ranges::find(Menus, menu, &TMenus::value_type::first);
        return found != Menus.end() ? found->second : TMenuEntries();
    }
};

TMenuEntry Wallpaper(std::uint64_t id, const std::string& caption)
{
    return {.Caption = caption, .Target = TMenuWallpaper{id}};
}
TMenuBelow Category(const std::string& category, int first = 0)
{
    return {TMenuBelow::Category, category, first};
}
TMenuEntry Menu(const TMenuBelow& menu, const std::string& caption)
{
    return {.Caption = caption, .Target = menu};
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
        m_menu.Menus = {
            {{}, {{"&Next && _x\xFF", TMenuAction{7}}, {}, Menu(All, "Wallpaper")}},
            {All, {Wallpaper(1, "One"), Wallpaper(2, "Two")}},
        };
        m_events.OnOpens = [this] { m_area->TellMenu(m_menu); };
    }
    TMenuEntries& Main() { return m_menu.Menus[0].second; }
    TMenuEntries& Wallpapers() { return m_menu.Menus[1].second; }

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

    std::string Show(gint32 number) { return Called("AboutToShow", g_variant_new("(i)", number)); }
    static int EntriesOf(const std::string& layout)
    {
        int count = 0;
        for (std::size_t at = 0; (at = layout.find("<(", at)) != std::string::npos; ++at)
            ++count;
        return count;
    }
    // Since the last call. An answer comes behind the signals that were sent before.
    TWords Signals()
    {
        Layout();
        return std::exchange(m_told, {});
    }

    const TMenuBelow All{TMenuBelow::Wallpapers, {}};
    TTestWatcher m_watcher;
    TTestMenu m_menu;

private:
    static void OnSignal(GDBusConnection*, const char*, const char*, const char*,
                         const char* signal, GVariant* arguments, gpointer to)
    {
        const TGText text(g_variant_print(arguments, FALSE));
        static_cast<TWords*>(to)->push_back(std::string(signal) + text.get());
    }

    TWords m_told;
    guint m_listening = g_dbus_connection_signal_subscribe(
        m_watcher.Bus(), nullptr, "com.canonical.dbusmenu", nullptr, "/MenuBar", nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE, OnSignal, &m_told, nullptr);
};

} // namespace

TEST_F(NotifierMenu, EachLevelIsToldAsFarAsItIsAskedFor)
{
    Main()[0].Enabled = false;
    Wallpapers()[1].Checked = true;
    m_area->TellMenu(m_menu);
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
}

TEST_F(NotifierMenu, WhatHasChangedIsToldAndTheRestKeepsItsNumber)
{
    Wallpapers()[1].Enabled = false;
    Wallpapers()[0].Caption = "Sea && Land_";
    m_area->TellMenu(m_menu);
    EXPECT_EQ(Signals(), (TWords{"LayoutUpdated(2, 0)", "LayoutUpdated(2, 3)"}));
    EXPECT_NE(NumberOf("Sea & Land__"), -1);
    m_area->TellMenu(m_menu);
    EXPECT_EQ(Signals(), TWords{});
    // Not every panel can turn an entry into a checked one: it is a new one.
    Wallpapers()[1].Checked = true;
    m_area->TellMenu(m_menu);
    EXPECT_EQ(Signals(), TWords{"LayoutUpdated(3, 3)"});
    Wallpapers()[1].Enabled = true;
    m_area->TellMenu(m_menu);
    EXPECT_EQ(Signals(), TWords{"LayoutUpdated(4, 3)"});

    // The menu is renewed when it opens: what is still there keeps its number, and that of what is
    // gone stands for nothing more.
    const gint32 gone = NumberOf("Sea & Land__"), still = NumberOf("Two");
    Main().erase(Main().begin());
    Wallpapers() = {Wallpaper(3, "Three"), Wallpapers()[1]};
    m_events.Told.clear();
    EXPECT_EQ(Show(gone), "(false,)");
    EXPECT_TRUE(m_events.Told.empty());
    const TVariant both(g_variant_ref_sink(g_variant_new_parsed("[0, 99]")));
    EXPECT_EQ(Called("AboutToShowGroup", g_variant_new("(@ai)", both.get())), "([], [99])");
    EXPECT_EQ(m_events.Told, TWords{"opens"});
    EXPECT_EQ(Signals(), (TWords{"LayoutUpdated(5, 0)", "LayoutUpdated(5, 3)"}));
    EXPECT_EQ(NumberOf("Two"), still);
    const gint32 three = NumberOf("Three");
    EXPECT_GT(three, std::max(gone, still));
    EXPECT_EQ(Click(gone), "refused");
    EXPECT_EQ(Click(3), "()"); // opens what is below it
    EXPECT_EQ(Click(still), "()");
    EXPECT_EQ(m_events.Chosen, std::vector<TMenuTarget>{TMenuWallpaper{2}});
    const std::string events = "[(" + std::to_string(three) +
                               ", 'clicked', <0>, uint32 0), (0, 'closed', <0>, 0), "
                               "(99, 'clicked', <0>, 0)]";
    const TVariant group(
        g_variant_parse(G_VARIANT_TYPE("a(isvu)"), events.c_str(), nullptr, nullptr, nullptr));
    EXPECT_EQ(Called("EventGroup", g_variant_new("(@a(isvu))", group.get())), "([99],)");
    EXPECT_EQ(m_events.Chosen.back(), TMenuTarget(TMenuWallpaper{3}));
}

// Panels make something of every entry that they are told.
class LargeNotifierMenu : public NotifierMenu
{
protected:
    static constexpr int Menus = 20, Entries = 40;
    LargeNotifierMenu()
    {
        Wallpapers().clear();
        for (int i = 0; i < Menus; ++i) {
            const std::string name = "C" + std::to_string(i);
            m_menu.Menus[1].second.push_back(Menu(Category(name), name));
            m_menu.Menus.emplace_back(Category(name), TMenuEntries(Entries, Wallpaper(1, "One")));
        }
        m_area->TellMenu(m_menu);
        m_category = NumberOf("C1");
        Signals();
    }

    gint32 m_category;
};

TEST_F(LargeNotifierMenu, IsToldAsItIsOpened)
{
    const auto whole = [this] { return EntriesOf(Layout()); };
    EXPECT_EQ(whole(), 3 + Menus + Menus * 10);
    EXPECT_EQ(Show(0), "(false,)");
    EXPECT_EQ(Show(3), "(false,)") << "all of it was told";
    EXPECT_EQ(EntriesOf(Layout(m_category, 1)), 10);
    EXPECT_EQ(Show(m_category), "(true,)");
    EXPECT_EQ(Signals(), TWords{"LayoutUpdated(3, " + std::to_string(m_category) + ")"});
    EXPECT_EQ(EntriesOf(Layout(m_category, 1)), Entries);
    EXPECT_EQ(Show(m_category), "(false,)");
    EXPECT_EQ(whole(), 3 + Menus + (Menus - 1) * 10 + Entries);
    const TVariant next(g_variant_ref_sink(g_variant_new_parsed("[%i, 0]", NumberOf("C2"))));
    EXPECT_EQ(Called("AboutToShowGroup", g_variant_new("(@ai)", next.get())),
              "([" + std::to_string(NumberOf("C2")) + "], [])");
}

TEST_F(LargeNotifierMenu, IsToldAtOnceWhereAPanelDoesNotSayWhatIsOpened)
{
    EXPECT_EQ(EntriesOf(Layout(0, -1, {"label", "disposition"})), 3 + Menus + Menus * 10);
    EXPECT_EQ(Show(0), "(false,)");
    EXPECT_EQ(Signals(), TWords{"LayoutUpdated(3, 0)"}) << "each signal has it read all again";
    EXPECT_EQ(EntriesOf(Layout()), 3 + Menus + Menus * Entries);
}

// GNOME's extension reads labels by themselves; what is told again it makes anew, closed.
TEST_F(LargeNotifierMenu, IsToldOnceWhereLabelsAreReadByThemselves)
{
    EXPECT_NE(Layout(m_category, 0, {"children-display"}).find("submenu"), std::string::npos);
    EXPECT_EQ(Layout(m_category, 0, {"children-display"}).find("submenu"), std::string::npos);
    EXPECT_NE(Layout(m_category, 0, {"label", "children-display"}).find("submenu"),
              std::string::npos);
}

// The bus ends the connection of a program whose messages are nested deeper than 64 times.
TEST_F(NotifierMenu, ThatIsNestedDeeplyStillGetsThrough)
{
    Wallpapers() = {Menu(Category("", 0), "More 0")};
    for (int i = 0; i < 40; ++i)
        m_menu.Menus.emplace_back(
            Category("", i),
            TMenuEntries{Menu(Category("", i + 1), "More " + std::to_string(i + 1))});
    m_area->TellMenu(m_menu);
    const gint32 last = NumberOf("More 16");
    EXPECT_EQ(NumberOf("More 17"), -1);
    EXPECT_EQ(Layout(last).find("submenu"), std::string::npos);
    EXPECT_EQ(Click(last), "()");
    EXPECT_EQ(m_events.Chosen, std::vector<TMenuTarget>{Category("", 16)});
}
