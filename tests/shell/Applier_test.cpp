#include "MuralaFixture.h"

#include "uSafeFile.h"
#include "uText.h"

using namespace murala;

using Applier = TMuralaFixture;

TEST_F(Applier, InstallsThePictureWithItsColourThenTheLabels)
{
    m_services.IconView.HasIcons = true;
    AddPictures(1);
    Item(0).DesktopColor = 255;
    Item(0).TransparentIcons = true;
    Item(0).GammaStyle = gsSolid;
    Item(0).SetStartTint({-256, -256, -256});
    Apply(0);
    EXPECT_EQ(m_services.Desktop.Calls,
              (std::vector<std::string>{"tile 1", "install MuralaWallpaper.bmp 255"}));
    EXPECT_EQ(m_services.IconView.LabelColor, NoColor);
    EXPECT_EQ(m_services.Siblings.Notified, 1);
    EXPECT_EQ(m_view.Busy, 0);
    EXPECT_EQ(m_murala->Core.Settings.Memory.LastChangeDate, m_services.Clock.Time);
    const TBitmap picture = Installed();
    EXPECT_EQ(picture.Size(), m_services.Desktop.Screen);
    EXPECT_EQ(picture.Row(7)[9] & 0xFFFFFF, 0U) << "the tint is on the picture";
}

TEST_F(Applier, EachVirtualDesktopHasItsOwnPicturesAndCurrentWallpaper)
{
    AddPictures(3);
    m_services.Desktop.OtherScreens = {{"-right", {30, 50}}};
    Apply(1);
    EXPECT_EQ(Installed().Size(), m_services.Desktop.Screen);
    EXPECT_EQ(ImageFileSize(m_folder.File("MuralaWallpaper-right.bmp")), (TSize{30, 50}));
    m_services.Siblings.VeyraDesktop = 3;
    Apply(2);
    EXPECT_EQ(m_services.Desktop.Calls.back(), "install MuralaWallpaper3-right.bmp 0");
    Restart();
    EXPECT_EQ(CurrentIndex(), 2);
    m_services.Siblings.VeyraDesktop = 1;
    Restart();
    EXPECT_EQ(CurrentIndex(), 1);
}

TEST_F(Applier, ABrokenPictureIsToldWithoutHourglassAndChangesNothing)
{
    AddPictures(1);
    const std::string broken = m_folder.Write("Broken.jpg", "no picture");
    m_murala->Desk.AddFiles({broken});
    Apply(1);
    ASSERT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(m_view.Messages[0], "The image (" + broken +
                                      ") could not be loaded. The image file may be corrupt or "
                                      "missing.");
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    EXPECT_FALSE(m_view.BusyInMessage);
    EXPECT_EQ(m_services.Siblings.Notified, 1) << "told after a failure, too";
    EXPECT_EQ(LoadPreview(), m_view.Messages[0]);
}

TEST_F(Applier, WithoutACurrentWallpaperOnlyTheLastStepsRun)
{
    AddPictures(1);
    m_murala->Core.Selection.SetCurrent(nullptr);
    EXPECT_FALSE(m_murala->Applier.ComposeWallpaper(true));
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    EXPECT_EQ(m_services.Siblings.Notified, 1);
    EXPECT_TRUE(m_view.Messages.empty());
}

TEST_F(Applier, AnUnwillingDesktopIsToldUntilTheNextWallpaperEvenIfItAnswersLate)
{
    AddPictures(2);
    m_services.Desktop.TakesWallpaper = false;
    Apply(0);
    m_services.Door.Open();
    EXPECT_EQ(m_murala->Core.Status.Problem(), "The desktop did not take the wallpaper.");
    EXPECT_EQ(m_view.Status, m_murala->Core.Status.Problem());
    m_services.Desktop.AnswersLater = true;
    Apply(1);
    EXPECT_TRUE(m_murala->Core.Status.Problem().empty());
    m_services.Desktop.Answer();
    m_services.Door.Open();
    EXPECT_FALSE(m_murala->Core.Status.Problem().empty());
    Apply(0);
    m_services.Desktop.Answer(); // on its way when the next one is applied
    Apply(1);
    m_services.Door.Open();
    EXPECT_TRUE(m_murala->Core.Status.Problem().empty());
    m_services.Desktop.Answer();
    m_murala.reset();
    m_services.Door.Open(); // there is nobody left to tell
    m_services.Desktop.Answer();
    m_services.Door.Open();
}

TEST_F(Applier, NextNeedsTwoWallpapersAndPreviousOne)
{
    AddPictures(1);
    EXPECT_FALSE(m_murala->Applier.Next());
    m_murala->Applier.Previous();
    EXPECT_EQ(m_services.Siblings.Notified, 1);
    AddPictures(3);
    Select(2);
    EXPECT_TRUE(m_murala->Applier.Next());
    EXPECT_EQ(CurrentIndex(), 0);
    m_murala->Applier.Previous();
    EXPECT_EQ(CurrentIndex(), 2);
    EXPECT_EQ(SelectedRows(), std::vector<int>{2});
}

TEST_F(Applier, EffectsAreStartedOnThePictureThatIsApplied)
{
    AddPictures(2);
    Select(1);
    m_murala->Editor.SetEffect(Selected(), "Snow");
    Apply(1);
    ASSERT_EQ(m_services.Launcher.Started.size(), 1U);
    const std::string quoted = FormatText("\"%s\"", {Item(1).FileName()});
    EXPECT_TRUE(m_services.Launcher.Started[0].ends_with(quoted));
    EXPECT_EQ(m_view.Disabled, 0);
    m_services.Launcher.Result = 31;
    Apply(1);
    EXPECT_EQ(m_view.Messages,
              std::vector<std::string>{"The effect (Snow) could not be launched."});
    m_services.Siblings.RovaneRuns = true;
    Apply(0);
    EXPECT_FALSE(m_services.Siblings.RovaneRuns) << "a wallpaper without effect closes Rovane";
    m_services.Siblings.RovaneRuns = true;
    Select(1);
    m_murala->Applier.Apply(Item(0));
    EXPECT_TRUE(m_services.Siblings.RovaneRuns) << "but only when it is the selected one";
    m_services.Launcher.Started.clear();
    m_services.Launcher.Result = 32;
    m_murala->Applier.RunEffectSettings(Item(1));
    EXPECT_EQ(CurrentIndex(), 1);
    ASSERT_EQ(m_services.Launcher.Started.size(), 1U) << "the effect itself is not started";
    EXPECT_TRUE(m_services.Launcher.Started[0].ends_with("\" /settings"));
    EXPECT_FALSE(m_view.Visible) << "nothing covers them";
}

TEST_F(Applier, WhatComesInWhileAnEffectStartsFindsThePause)
{
    AddPictures(3);
    Item(0).Effect = "Snow";
    m_murala->Ticker.SetSchedule({true, 1, suMinute, 0.5, 0});
    bool wasPaused = false;
    m_services.MessageLoop.Queue.push_back([&] {
        wasPaused = m_murala->Core.Pauses.IsPaused() && m_view.Disabled == 1;
        m_services.Clock.Time += 5 / MinutesPerDay;
        m_murala->Ticker.ScheduleTick();
        EXPECT_FALSE(m_murala->Applier.Next());
        m_murala->Applier.Apply(Item(2));
        m_murala->Applier.RunEffectSettings(Item(0));
        // Another copy's files select what they add.
        m_murala->Session.ImportQueuedFiles();
    });
    m_services.FileQueue.QueueFiles({Picture("New.bmp")});
    Apply(0);
    EXPECT_TRUE(wasPaused);
    EXPECT_EQ(CurrentIndex(), 0);
    EXPECT_EQ(m_services.Siblings.Notified, 1) << "one change";
    EXPECT_EQ(m_view.Disabled, 0);
    EXPECT_FALSE(m_murala->Core.Pauses.IsPaused());
}
