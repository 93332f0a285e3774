#include "MuralaFixture.h"

using namespace murala;

using ItemEditor = TMuralaFixture;

TEST_F(ItemEditor, OnlyTheWallpaperOnTheDesktopChangesTheDesktop)
{
    m_services.IconView.HasIcons = true;
    AddPictures(2);
    Apply(0);
    m_services.Desktop.Calls.clear();
    m_services.IconView.Paintings = 0;
    Select(1);
    m_murala->Editor.SetDesktopColor(Selected(), 0xFF0000);
    m_murala->Editor.ToggleTransparentIcons(Selected());
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    EXPECT_EQ(m_services.IconView.Paintings, 0);
    EXPECT_EQ(Item(1).DesktopColor, 0xFF0000U);
    EXPECT_TRUE(Item(1).TransparentIcons);
    m_murala->Core.Selection.SelectAll();
    m_murala->Editor.SetDesktopColor(Selected(), 0x00FF00);
    EXPECT_EQ(m_services.Desktop.Calls, (std::vector<std::string>{"colour 65280"}));
    EXPECT_EQ(Item(0).DesktopColor, 0x00FF00U);
    Select(0);
    m_murala->Editor.ToggleTransparentIcons(Selected());
    EXPECT_EQ(m_services.IconView.LabelColor, NoColor);
    m_murala->Core.Updating = true;
    m_murala->Editor.SetDesktopColor(Selected(), 1);
    m_murala->Editor.ToggleTransparentIcons(Selected());
    EXPECT_EQ(m_services.Desktop.Calls.size(), 1U);
    EXPECT_TRUE(Item(0).TransparentIcons);
}

TEST_F(ItemEditor, DisplayModesThatCannotBeAreRefusedWithTheirMessages)
{
    m_services.Desktop.Screen = {1920, 1080};
    m_murala->Desk.AddFiles({Picture("Wide.bmp", 801, 40), Picture("Wide2.bmp", 900, 40),
                             Picture("Narrow.bmp", 800, 40)});
    m_murala->Core.Selection.SelectAll();
    m_murala->Editor.SetDisplayMode(Selected(), dmMirrorTiled);
    EXPECT_EQ(Item(0).DisplayMode, dmFitHorizontally);
    EXPECT_EQ(Item(2).DisplayMode, dmMirrorTiled);
    EXPECT_EQ(m_view.Messages,
              std::vector<std::string>{"This image is too large to use mirror tiled mode."});
}

TEST_F(ItemEditor, WhatTheUserEndsKeepsItsModeAndTheRestIsSaved)
{
    AddPictures(4);
    m_murala->Core.Selection.SelectAll();
    m_view.WorkEndsAt = 2;
    m_murala->Editor.SetDisplayMode(Selected(), dmMirrorTiled);
    EXPECT_EQ(m_view.WorkText, "Changing Display Mode:\nPicture2");
    EXPECT_FALSE(m_murala->Core.Pauses.IsPaused());
    Restart();
    const TDisplayMode expected[] = {dmMirrorTiled, dmMirrorTiled, dmStretched, dmStretched};
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(Item(row).DisplayMode, expected[row]) << row;
}

TEST_F(ItemEditor, SteppingPassesOverWhatIsTooLargeAndGoesRound)
{
    m_services.Desktop.Screen = {1920, 1080};
    m_murala->Desk.AddFiles({Picture("Wide.bmp", 801, 40), m_services.ProgramFolder + "Gone.jpg"});
    const auto modes = [this](int row) {
        std::string seen;
        for (int i = 0; i < 6; ++i) {
            m_murala->Editor.StepDisplayMode({&Item(row)});
            seen += static_cast<char>('0' + Item(row).DisplayMode);
        }
        return seen;
    };
    EXPECT_EQ(modes(0), "453453") << "from stretched over mirrored; fit vertically is too wide";
    EXPECT_EQ(modes(1), "345012") << "of a missing file no size is known";
    EXPECT_TRUE(m_view.Messages.empty());
}

TEST_F(ItemEditor, NoTintResetsTheTintValues)
{
    AddPictures(1);
    m_murala->Editor.SetGammaStyle(Selected(), gsVertical);
    m_murala->Editor.SetTint(Selected(), TTintEnd::End, TChannel::Green, -7);
    m_murala->Editor.SetTint(Selected(), TTintEnd::Start, TChannel::All, 9);
    EXPECT_EQ(Item(0).EndTint(), (TTint{255, -7, 255}));
    EXPECT_EQ(Item(0).StartTint(), (TTint{9, 9, 9}));
    m_murala->Editor.SetGammaStyle(Selected(), gsNone);
    EXPECT_EQ(Item(0).EndTint(), TTint());
    EXPECT_EQ(Item(0).StartTint(), TTint());
}

TEST_F(ItemEditor, WhatIsMeantForManyIsDoneToAllAndSavedOnce)
{
    AddPictures(3);
    m_murala->Core.Selection.SelectRows({0, 2}, 2);
    Item(2).TransparentIcons = true;
    m_murala->Editor.SetEffect(Selected(), "Snow");
    m_murala->Editor.ToggleTransparentIcons(Selected());
    Block(ListFileName);
    m_murala->Editor.SetEffect(Selected(), "Snow");
    EXPECT_TRUE(m_view.Messages.empty()) << "nothing is to be saved";
    Unblock(ListFileName);
    Restart();
    EXPECT_EQ(Item(0).Effect + Item(1).Effect + Item(2).Effect, "Snow(None)Snow");
    EXPECT_FALSE(Item(0).TransparentIcons || Item(2).TransparentIcons)
        << "all become what the focused one, which the check shows, was not";
}
