// The places of icons, from files as the desktops wrote them (xfdesktop 4.18, PCManFM 1.3,
// PCManFM-Qt 1.2, Caja 1.26, Nemo 5.6), on a screen of 1920 x 1080 pixels.
#include "uIconLayout.h"
#include "uIconView.h"

#include "uTestSession.h"

#include <X11/Xatom.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

namespace murala
{

namespace
{

class IconsOnADesktop : public testing::Test
{
protected:
    void ShowDesktopOf(const char* windowClass) { m_screen.ShowDesktopOf(windowClass); }
    void Put(const std::string& name, const std::string& text)
    {
        std::filesystem::create_directories(
            std::filesystem::path(m_session.File(name)).parent_path());
        m_session.Write(name, text);
    }

    TTestSession m_session;
    TTestScreen m_screen{m_session, "1920x1080x24"};
    std::unique_ptr<TIconView> m_icons = NewIconView();
};

// Icons with these middles, as seen on screenshots, lie in the region.
void ExpectIcons(const TIconRegion& region, std::size_t count,
                 const std::vector<std::pair<int, int>>& middles)
{
    ASSERT_EQ(region.Problem, "");
    EXPECT_EQ(region.Rects.size(), 2 * count) << "an icon and its label each";
    for (const auto& [x, y] : middles) {
        const bool isThere = std::ranges::any_of(region.Rects, [x = x, y = y](const TRect& rect) {
            return rect.Width() == 48 && std::abs((rect.Left + rect.Right) / 2 - x) <= 3 &&
                   std::abs((rect.Top + rect.Bottom) / 2 - y) <= 6;
        });
        EXPECT_TRUE(isThere) << "an icon at " << x << ", " << y;
    }
}

constexpr const char* XfceFile = R"([xfdesktop-version-4.10.3+-rcfile_format]
4.10.3+=true

[/home/me/Desktop/Über 100% [x]=y;z.txt]
row=5
col=0

[/home/me/Desktop/plain.txt]
row=3
col=4

[Trash]
row=0
col=0

[/home/me]
row=0
col=17

)";

} // namespace

TEST(IconLayout, CellsBesideATakenOneAreFreeAndLabelsHaveRoom)
{
    EXPECT_EQ(FreeCells({0, 0, 30, 10}, {10, 10}, {{10, 0, 20, 10}}, 5),
              (TRects{{0, 0, 10, 10}, {20, 0, 30, 10}}));
    TRects icon; // eleven letters at the least, and a gap around the label
    AddIcon(icon, {48, 200, 2}, 100, 10, "a");
    EXPECT_EQ(icon, (TRects{{76, 10, 124, 58}, {45, 58, 155, 84}}));
}

TEST_F(IconsOnADesktop, XfcesCellsBecomePlacesInTheAreaBetweenThePanels)
{
    ShowDesktopOf("xfdesktop");
    EXPECT_EQ(m_icons->GetIconRegion().Problem, "xfdesktop has stored no places of icons.");
    Put(".config/xfce4/desktop/icons.screen0-1904x1064.rc", XfceFile);
    Put(".config/xfce4/desktop/icons.screen.latest.rc", "[Trash]\nrow=0\ncol=0\n");
    ExpectIcons(m_icons->GetIconRegion(), 4, {{73, 46}, {490, 358}, {73, 568}, {1845, 46}});
    m_screen.SetMonitor("Right", {960, 0, 1920, 1080}, true);
    ExpectIcons(m_icons->GetIconRegion(), 4, {{73 - 960, 46}, {1845 - 960, 46}});
    m_screen.SetProperty("_NET_WORKAREA", XA_CARDINAL, {960, 26, 1920, 1054});
    ExpectIcons(m_icons->GetIconRegion(), 1, {{73, 72}});
    m_session.Write(".config/xfce4/desktop/icons.screen.latest.rc",
                    "[Trash]\nrow=-1\ncol=0\n[/a]\nrow=2000000000\ncol=1\n[/b]\nrow=x\n[");
    ExpectIcons(m_icons->GetIconRegion(), 0, {});
}

TEST_F(IconsOnADesktop, ASettingsServiceThatHangsIsNotWaitedFor)
{
    const TTestBus bus(m_session);
    std::atomic asked = 0;
    const auto hanging =
        NewService("org.xfce.Xfconf", "/org/xfce/Xfconf org.xfce.Xfconf.GetProperty",
                   [&](GVariant*) -> GVariant* {
                       asked++;
                       return nullptr;
                   });
    ShowDesktopOf("xfdesktop");
    Put(".config/xfce4/desktop/icons.screen.latest.rc", "[Trash]\nrow=0\ncol=0\n");
    const auto start = g_get_monotonic_time();
    ExpectIcons(m_icons->GetIconRegion(), 1, {{73, 46}});
    EXPECT_LT(g_get_monotonic_time() - start, 2 * G_USEC_PER_SEC);
    EXPECT_GT(asked, 0);
}

TEST_F(IconsOnADesktop, PcmanfmsColumnsAreFilledAroundTheIconsThatWereMoved)
{
    for (const char* name : {"Über 100% [x]=y;z.txt", "c", "d", ".hidden"})
        Put(std::string("Desktop/") + name, "");
    Put(".config/pcmanfm/Old/desktop-items-0.conf", "[c]\nx=900\ny=900\n");
    std::filesystem::last_write_time(m_session.File(".config/pcmanfm/Old/desktop-items-0.conf"),
                                     std::filesystem::file_time_type::min());
    Put(".config/pcmanfm/LXDE/desktop-items-0.conf",
        "[*]\nwallpaper_mode=color\nshow_documents=0\nshow_trash=1\nshow_mounts=0\n\n"
        "[Über 100% \\[x\\]=y;z.txt]\nx=1342\ny=183\n\n[trash:///]\nx=2\ny=107\n\n"
        "[gone.txt]\nx=942\ny=669\n\n");
    ShowDesktopOf("pcmanfm");
    ExpectIcons(m_icons->GetIconRegion(), 4, {{1400, 211}, {60, 135}, {60, 29}, {60, 241}});
}

TEST_F(IconsOnADesktop, PcmanfmQtsNamesAreReadAndItsColumnsFilled)
{
    for (const char* name : {"Über 100% [x]=y;z.txt", "日本\U0001F600.txt", "Folder"})
        Put(std::string("Desktop/") + name, "");
    ShowDesktopOf("pcmanfm-qt");
    ExpectIcons(m_icons->GetIconRegion(), 3, {{75, 40}, {75, 156}, {75, 272}});
    Put(".config/pcmanfm-qt/lxqt/desktop-items-0.conf",
        "[%U65E5%U672C%UD83D%UDE00.txt]\npos=@Point(1028 128)\n\n"
        "[trash-can.desktop]\npos=@Point(1536 592)\n\n[Folder]\npos=broken\n\n"
        "[%DCber%20100%25%20%5Bx%5D%3Dy%3Bz.txt]\npos=@Point(774 128)\n");
    ExpectIcons(m_icons->GetIconRegion(), 3, {{1091, 156}, {837, 156}, {75, 40}});
}

// Where the system keeps metadata of files, which takes programs of its own, the files' count, too.
TEST_F(IconsOnADesktop, CajaAndNemoKeepEveryPlace)
{
    Put("Desktop/plain.txt", "");
    ShowDesktopOf("Caja");
    EXPECT_EQ(m_icons->GetIconRegion().Problem, "caja has stored no places of icons.");
    Put(".config/caja/desktop-metadata",
        "[directory]\ncaja-icon-view-keep-aligned=true\n\n"
        "[home]\ncaja-icon-position=64,102\nicon-scale=1\n\n"
        "[computer]\ncaja-icon-position=1078,282\n[trash]\ncaja-icon-position=5\n");
    ExpectIcons(m_icons->GetIconRegion(), 2, {{88, 126}, {1102, 306}});
}

TEST_F(IconsOnADesktop, WhatCannotBeReadIsSaidAndSoIsADesktopThatTellsNothing)
{
    EXPECT_EQ(m_icons->GetIconRegion().Problem, "This desktop does not tell where its icons are.");
    ShowDesktopOf("xfdesktop");
    std::filesystem::create_directories(
        m_session.File(".config/xfce4/desktop/icons.screen.latest.rc"));
    const std::string problem = m_icons->GetIconRegion().Problem;
    EXPECT_NE(problem.find("icons.screen.latest.rc"), std::string::npos) << problem;
}

} // namespace murala
