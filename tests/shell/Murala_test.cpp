#include "uMurala.h"

#include "FakeMainView.h"
#include "FakeServices.h"
#include "uIconView.h"
#include "uSafeFile.h"
#include "uTempFolder.h"
#include "uText.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

class Murala : public testing::Test
{
protected:
    Murala()
    {
        m_services.ProgramFolder = WithTrailingDivider(m_folder.Path());
        Restart();
    }

    void Restart()
    {
        m_view = TFakeMainView();
        m_murala = std::make_unique<TMurala>(m_services.Services(), m_view);
        m_murala->LoadSettings({});
        m_murala->LoadList();
        m_murala->Updating = false;
    }

    std::string Picture(const std::string& name, int width = 8, int height = 4)
    {
        TBitmap bitmap(width, height);
        for (int y = 0; y < height; ++y)
            std::fill_n(bitmap.Row(y), width, ColorToPixel(0x204060));
        const std::string path = m_services.ProgramFolder + name;
        SaveBitmapFile(bitmap, path);
        return path;
    }

    void AddPictures(int count)
    {
        std::vector<std::string> files;
        for (int i = 0; i < count; ++i)
            files.push_back(Picture("Picture" + std::to_string(i) + ".bmp"));
        m_murala->AddFiles(files);
    }

    std::string Titles() const
    {
        std::string titles;
        for (int i = 0; i < m_murala->List.Count(); ++i)
            titles += m_murala->List.Item(i).Title.back();
        return titles;
    }

    TTempFolder m_folder;
    TFakeServices m_services;
    TFakeMainView m_view;
    std::unique_ptr<TMurala> m_murala;
};

} // namespace

TEST_F(Murala, AddsEachFileOnceAndKeepsItForTheNextStart)
{
    m_murala->Settings.DefaultTransparentIcons = true;
    AddPictures(2);
    EXPECT_EQ(m_murala->AddFiles({m_murala->List.Item(0).FileName()}), 0);
    EXPECT_EQ(m_view.Selection, std::vector<int>{1});
    Restart();
    ASSERT_EQ(m_murala->List.Count(), 2);
    const TMuWallpaper& item = m_murala->List.Item(0);
    EXPECT_EQ(item.Title, "Picture0");
    EXPECT_EQ(item.DisplayMode, dmStretched);
    EXPECT_TRUE(item.TransparentIcons);
    EXPECT_EQ(item.Category, UpperAscii(m_services.ProgramFolder));
    EXPECT_EQ(m_murala->CurrentIndex(), 0);
}

TEST_F(Murala, RemovingSelectsWhatMovedUpAndFollowsTheCurrentOne)
{
    AddPictures(5);
    m_view.SelectRow(4);
    m_murala->ApplySelected();
    m_view.Selection = {2, 3};
    m_murala->RemoveSelected();
    EXPECT_EQ(Titles(), "014");
    EXPECT_EQ(m_view.Selection, std::vector<int>{2});
    EXPECT_EQ(m_murala->CurrentIndex(), 2);
    m_view.Selection = {0, 1, 2};
    m_murala->RemoveSelected();
    EXPECT_TRUE(m_view.Selection.empty());
    EXPECT_EQ(m_murala->CurrentIndex(), -1);
    Restart();
    EXPECT_EQ(m_murala->List.Count(), 0);
}

TEST_F(Murala, SortingTwiceInvertsAndKeepsSelectionAndCurrent)
{
    AddPictures(3);
    m_view.SelectRow(1);
    m_murala->ApplySelected();
    m_murala->SortByColumn(lcTitle);
    m_murala->SortByColumn(lcTitle);
    EXPECT_EQ(Titles(), "210");
    EXPECT_EQ(m_murala->CurrentIndex(), 1);
    m_murala->SortByColumn(lcFileName);
    EXPECT_EQ(Titles(), "210") << "another column keeps the direction";
    EXPECT_EQ(m_view.Selection, std::vector<int>{1});
}

TEST_F(Murala, ApplyingInstallsThePictureThenColourAndLabels)
{
    m_services.IconView.HasIcons = true;
    AddPictures(1);
    TMuWallpaper& item = m_murala->List.Item(0);
    item.DesktopColor = 255;
    item.TransparentIcons = true;
    item.GammaStyle = gsSolid;
    item.SetStartTint({-256, -256, -256});
    m_murala->ApplySelected();
    EXPECT_EQ(m_services.Desktop.Calls,
              (std::vector<std::string>{"tile 1", "install MuralaWallpaper.bmp 255"}));
    EXPECT_EQ(m_services.IconView.LabelColor, NoColor);
    EXPECT_EQ(m_services.Siblings.Notified, 1);
    EXPECT_EQ(m_view.Busy, 0);
    EXPECT_EQ(m_murala->Settings.LastChangeDate, m_services.Clock.Time);
    const TBitmap picture = LoadImageFile(m_services.ProgramFolder + "MuralaWallpaper.bmp");
    EXPECT_EQ(picture.Size(), m_services.Desktop.Screen);
    EXPECT_EQ(picture.Row(7)[9] & 0xFFFFFF, 0U) << "the tint is on the picture";
}

TEST_F(Murala, EachVirtualDesktopHasItsOwnPictureAndCurrentWallpaper)
{
    AddPictures(3);
    m_view.SelectRow(1);
    m_murala->ApplySelected();
    m_services.Siblings.VeyraDesktop = 3;
    m_view.SelectRow(2);
    m_murala->ApplySelected();
    EXPECT_EQ(m_services.Desktop.Calls.back().substr(0, 28), "install MuralaWallpaper3.bmp");
    Restart();
    EXPECT_EQ(m_murala->CurrentIndex(), 2);
    m_services.Siblings.VeyraDesktop = 1;
    Restart();
    EXPECT_EQ(m_murala->CurrentIndex(), 1);
}

TEST_F(Murala, ABrokenPictureIsToldAndChangesNothing)
{
    AddPictures(1);
    const std::string broken = m_services.ProgramFolder + "Broken.jpg";
    ReplaceWholeFile(broken, "no picture", TFlush::ToSystemCache);
    m_murala->AddFiles({broken});
    m_murala->ApplySelected();
    ASSERT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(m_view.Messages[0], "The image (" + broken +
                                      ") could not be loaded. The image file may be corrupt or "
                                      "missing.");
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    EXPECT_EQ(m_view.Busy, 0);
    EXPECT_EQ(m_murala->LoadPreview(), m_view.Messages[0]);
}

TEST_F(Murala, NextNeedsTwoWallpapersAndPreviousOne)
{
    AddPictures(1);
    EXPECT_FALSE(m_murala->Next());
    m_murala->Previous();
    EXPECT_EQ(m_view.WallpaperChanges, 1);
    AddPictures(3);
    m_view.SelectRow(2);
    EXPECT_TRUE(m_murala->Next());
    EXPECT_EQ(m_murala->CurrentIndex(), 0);
    m_murala->Previous();
    EXPECT_EQ(m_murala->CurrentIndex(), 2);
    EXPECT_EQ(m_view.Selection, std::vector<int>{2});
}

TEST_F(Murala, OnlyTheWallpaperOnTheDesktopChangesTheDesktop)
{
    m_services.IconView.HasIcons = true;
    AddPictures(2);
    m_view.SelectRow(0);
    m_murala->ApplySelected();
    m_services.Desktop.Calls.clear();
    m_services.IconView.Paintings = 0;
    m_view.SelectRow(1);
    m_murala->SetDesktopColor(0xFF0000);
    m_murala->ToggleTransparentIcons();
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    EXPECT_EQ(m_services.IconView.Paintings, 0);
    EXPECT_EQ(m_murala->List.Item(1).DesktopColor, 0xFF0000U);
    EXPECT_TRUE(m_murala->List.Item(1).TransparentIcons);
    m_view.SelectRow(0);
    m_murala->SetDesktopColor(0xFF0000);
    EXPECT_EQ(m_services.Desktop.Calls, (std::vector<std::string>{"colour 16711680"}));
    m_murala->ToggleTransparentIcons();
    EXPECT_EQ(m_services.IconView.LabelColor, NoColor);
}

TEST_F(Murala, DisplayModesThatCannotBeAreRefusedWithTheirMessages)
{
    m_services.Desktop.Screen = {1920, 1080};
    m_murala->AddFiles({Picture("Wide.bmp", 801, 40)});
    m_murala->SetDisplayMode(dmMirrorTiled);
    EXPECT_EQ(m_murala->List.Item(0).DisplayMode, dmFitHorizontally);
    EXPECT_EQ(m_view.Messages,
              std::vector<std::string>{"This image is too large to use mirror tiled mode."});
}

TEST_F(Murala, NoTintResetsTheTintValues)
{
    AddPictures(1);
    m_murala->SetGammaStyle(gsVertical);
    m_murala->SetTint(TTintEnd::End, TTintChannel::Green, -7);
    m_murala->SetTint(TTintEnd::Start, TTintChannel::All, 9);
    const TMuWallpaper& item = m_murala->List.Item(0);
    EXPECT_EQ(item.GammaEndGreen, -7);
    EXPECT_EQ(item.GammaEndRed, 255);
    EXPECT_TRUE(item.StartTintIsGrey());
    m_murala->SetGammaStyle(gsNone);
    EXPECT_EQ(item.GammaEndGreen, 0);
    EXPECT_EQ(item.GammaStartRed, 0);
}

TEST_F(Murala, AFailingSaveIsToldOnceAndLosesNothing)
{
    AddPictures(2);
    const std::string list = m_services.ProgramFolder + std::string(ListFileName);
    const std::string before = ReadWholeFile(list);
    // A folder in the place of the new file makes every write fail, on every system and for root.
    m_services.ProgramFolder += "missing/";
    TMurala elsewhere(m_services.Services(), m_view);
    elsewhere.Updating = false;
    elsewhere.SaveList();
    elsewhere.SaveList();
    EXPECT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(ReadWholeFile(list), before);
    // The list can be saved, the settings cannot.
    const std::string settings = m_folder.File(SettingsFileName);
    DeleteFileIfPresent(settings);
    std::filesystem::create_directory(NativePath(settings));
    m_murala->SaveList();
    m_murala->SaveList();
    EXPECT_EQ(m_view.Messages.size(), 2U);
}

TEST_F(Murala, AnUnreadableListIsKeptBesideTheNewOne)
{
    AddPictures(3);
    const std::string list = m_services.ProgramFolder + std::string(ListFileName);
    std::string content = ReadWholeFile(list);
    const std::size_t secondLine = content.find("\r\n") + 2;
    content.insert(secondLine, "\"x.jpg\",\"x\",\"Tiled\",\"maybe\"\r\n");
    ReplaceWholeFile(list, content, TFlush::ToSystemCache);
    Restart();
    EXPECT_EQ(m_murala->List.Count(), 1);
    ASSERT_EQ(m_view.Messages.size(), 1U);
    EXPECT_NE(m_view.Messages[0].find('2'), std::string::npos) << m_view.Messages[0];
    m_murala->SaveList();
    m_murala->SaveList();
    int kept = 0;
    for (const auto& entry : std::filesystem::directory_iterator(NativePath(m_folder.Path())))
        if (entry.is_regular_file() && ReadWholeFile(PathText(entry.path())) == content)
            ++kept;
    EXPECT_EQ(kept, 1);
    Restart();
    EXPECT_EQ(m_murala->List.Count(), 1);
    EXPECT_TRUE(m_view.Messages.empty());
}

TEST_F(Murala, TheScheduleChangesOnceWhenItIsDue)
{
    AddPictures(3);
    m_view.SelectRow(0);
    m_murala->ApplySelected();
    m_murala->SetSchedule({true, 1, suMinute, 0.5, 0});
    const auto tickAfter = [this](double minutes) {
        m_services.Clock.Time += minutes / MinutesPerDay;
        m_murala->ScheduleTick();
        return m_murala->CurrentIndex();
    };
    EXPECT_EQ(tickAfter(0.9), 0);
    EXPECT_EQ(tickAfter(0.2), 1);
    EXPECT_EQ(tickAfter(0), 1);
    EXPECT_EQ(tickAfter(60.0 * 24 * 30), 2) << "a suspended machine: one change";
    EXPECT_EQ(tickAfter(0.5), 2);
    m_services.ScreenSaver.Running = true;
    EXPECT_EQ(tickAfter(5), 2);
    m_services.ScreenSaver.Running = false;
    EXPECT_EQ(tickAfter(0), 0);
    EXPECT_EQ(tickAfter(-60.0 * 24), 0) << "the clock was set back";
    EXPECT_EQ(tickAfter(1.1), 1);
    m_murala->Updating = true;
    EXPECT_EQ(tickAfter(2), 1);
}

TEST_F(Murala, TheSchedulePassesOverPicturesThatCannotBeShown)
{
    AddPictures(2);
    m_murala->AddFiles({m_services.ProgramFolder + "Missing.jpg"});
    m_view.SelectRow(1);
    m_murala->SetSchedule({true, 1, suMinute, 0.5, 0});
    m_services.Clock.Time += 2 / MinutesPerDay;
    m_murala->ScheduleTick();
    EXPECT_TRUE(m_view.Messages.empty()) << "nobody is there to close a message box";
    m_murala->ScheduleTick();
    EXPECT_EQ(m_murala->CurrentIndex(), 0);
    EXPECT_EQ(m_view.WallpaperChanges, 1);
}

TEST_F(Murala, LabelsAreRefreshedOnlyForAFlaggedWallpaper)
{
    m_services.IconView.HasIcons = true;
    AddPictures(1);
    m_murala->ApplySelected();
    m_services.IconView.Questions = 0;
    m_murala->RefreshTick();
    EXPECT_EQ(m_services.IconView.Questions, 0);
    m_murala->ToggleTransparentIcons();
    m_services.IconView.LabelColor = 0; // the shell went back to opaque by itself
    m_services.ScreenSaver.Running = true;
    m_murala->RefreshTick();
    EXPECT_EQ(m_services.IconView.LabelColor, 0U);
    m_services.ScreenSaver.Running = false;
    m_murala->RefreshTick();
    EXPECT_EQ(m_services.IconView.LabelColor, NoColor);
    m_services.IconView.Paintings = 0;
    m_murala->RefreshTick();
    EXPECT_EQ(m_services.IconView.Paintings, 0) << "no painting where nothing changed";
}

TEST_F(Murala, EffectsAreStartedOnThePictureThatIsApplied)
{
    AddPictures(2);
    m_view.SelectRow(1);
    m_murala->SetEffect("Snow");
    m_murala->ApplySelected();
    ASSERT_EQ(m_services.Launcher.Started.size(), 1U);
    const std::string quoted = FormatText("\"%s\"", {m_murala->List.Item(1).FileName()});
    EXPECT_TRUE(m_services.Launcher.Started[0].ends_with(quoted));
    EXPECT_TRUE(m_view.Enabled);
    m_services.Launcher.Result = 31;
    m_murala->ApplySelected();
    EXPECT_EQ(m_view.Messages,
              std::vector<std::string>{"The effect (Snow) could not be launched."});
    m_view.SelectRow(0);
    m_services.Siblings.RovaneRuns = true;
    m_murala->ApplySelected();
    EXPECT_FALSE(m_services.Siblings.RovaneRuns) << "a wallpaper without effect closes Rovane";
    m_view.SelectRow(1);
    m_services.Launcher.Started.clear();
    m_services.Launcher.Result = 32;
    m_murala->RunEffectSettings();
    EXPECT_EQ(m_murala->CurrentIndex(), 1);
    ASSERT_EQ(m_services.Launcher.Started.size(), 1U) << "the effect itself is not started";
    EXPECT_TRUE(m_services.Launcher.Started[0].ends_with("\" /settings"));
}

TEST_F(Murala, TheRunValueFollowsTheStartSettings)
{
    const auto command = [this] {
        const auto& commands = m_services.Autostart.Commands;
        const auto found = commands.find("Murala");
        return found == commands.end() ? "" : found->second;
    };
    const std::string program = m_services.ProgramFolder + "murala";
    m_murala->SetApplyOnStartup(true);
    EXPECT_EQ(command(), "");
    m_murala->SetStartAtStartup(true);
    EXPECT_EQ(command(), program + " /apply");
    m_murala->SetApplyOnStartup(false);
    EXPECT_EQ(command(), program);
    Restart();
    EXPECT_TRUE(m_murala->StartAtStartup());
    m_services.Autostart.IsForTheMachine = true;
    m_murala->SetStartAtStartup(false);
    EXPECT_TRUE(m_murala->StartAtStartup()) << "it is not the user's to take away";
    m_services.Autostart.IsForTheMachine = false;
    m_murala->SetStartAtStartup(false);
    EXPECT_EQ(command(), "");
}

TEST_F(Murala, QueuedFilesAreTakenIn)
{
    for (int i = 0; i < 3; ++i)
        m_services.FileQueue.QueueFiles({Picture("Q" + std::to_string(i) + ".bmp")});
    m_murala->ImportQueuedFiles();
    EXPECT_EQ(m_murala->List.Count(), 3);
    EXPECT_TRUE(m_services.FileQueue.Names.empty());
    EXPECT_TRUE(m_view.Enabled);
}
