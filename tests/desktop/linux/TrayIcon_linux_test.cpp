#include "uTestWatcher.h"

using namespace murala;

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
