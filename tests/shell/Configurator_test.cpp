#include "MuralaFixture.h"

using namespace murala;

using Configurator = TMuralaFixture;

TEST_F(Configurator, ConfirmingAssignsTheDialogsGroupsAndNothingElse)
{
    AddPictures(2);
    TConfiguration configuration = m_murala->Configurator.Present();
    configuration.StartAtStartup = true;
    configuration.ShellIntegration = true;
    configuration.Preferences = {true,  true, {false, false, 12, {{"a", "b"}}}, false, false,
                                 false, true};
    configuration.Schedule = {true, 5, suHour, 0.25, 3};
    // While the dialog stood.
    m_murala->Desk.RememberFolder("elsewhere");
    m_murala->Core.Settings.Window.PreviewSize = psLarge;
    m_murala->Core.Settings.IconBox.Gamma = 7;
    m_murala->Core.Settings.Preferences.RefreshIcons = true;
    m_services.Clock.Time += 3;
    TMuSettings expected = m_murala->Core.Settings;
    expected.Preferences = configuration.Preferences;
    expected.Schedule = configuration.Schedule;
    expected.Memory.LastChangeDate = m_services.Clock.Time; // the schedule counts from now
    const auto text = [](const TMuSettings& settings) {
        TIniFile file;
        SaveSettings(file, settings, {}, AllSaveFlags);
        return file.ToText();
    };
    struct : TListener {
        int Told = 0;
        void SettingsChanged() override { ++Told; }
    } window;
    const TSubscription subscription = m_murala->Core.Listeners.Listen(window);
    m_murala->Configurator.Confirm(configuration);
    EXPECT_EQ(window.Told, 1) << "it starts the schedule's timer";
    EXPECT_EQ(text(m_murala->Core.Settings), text(expected));
    Restart();
    EXPECT_EQ(text(m_murala->Core.Settings), text(expected)) << "and it is saved";
    EXPECT_EQ(m_murala->Core.Settings.Memory.WallpaperPath, "elsewhere");
    EXPECT_TRUE(m_murala->Session.StartAtStartup());
    EXPECT_TRUE(m_murala->Session.IsShellIntegrated());
    EXPECT_EQ(m_services.Autostart.Commands.begin()->second,
              m_services.ProgramFolder + "murala /apply");
    EXPECT_EQ(m_murala->Core.List.Item(0).Title, "Picture0") << "only new titles follow the rules";
}

TEST_F(Configurator, TitlesAreMadeAnewUntilTheUserEndsIt)
{
    AddPictures(200);
    TConfiguration configuration = m_murala->Configurator.Present();
    configuration.Preferences.Titles.ConvertList = {{"Picture", "Photo"}};
    configuration.Retitle = TRetitle::Selected;
    Select(3);
    m_murala->Configurator.Confirm(configuration);
    EXPECT_EQ(Item(3).Title, "Photo3");
    EXPECT_EQ(Item(2).Title, "Picture2");
    configuration.Retitle = TRetitle::All;
    m_view.WorkEndsAt = 128;
    m_murala->Configurator.Confirm(configuration);
    EXPECT_EQ(Item(127).Title, "Photo127");
    EXPECT_EQ(Item(128).Title, "Picture128");
    EXPECT_EQ(m_view.WorkText, "Saving Wallpaper List...");
    Restart();
    EXPECT_EQ(Item(127).Title, "Photo127") << "what was done is kept";
}

TEST_F(Configurator, ThumbnailsAreMadeAnewAndDeleted)
{
    AddPictures(3);
    m_murala->Desk.AddFiles({m_services.ProgramFolder + "Missing.jpg"});
    m_murala->Configurator.RefreshAllThumbnails();
    EXPECT_EQ(m_murala->Configurator.ThumbnailStatistics().Count, 3);
    ASSERT_EQ(m_view.Messages.size(), 1U) << "what could not be made";
    m_view.WorkEndsAt = 1;
    m_murala->Configurator.DeleteThumbnailCache();
    EXPECT_EQ(m_murala->Configurator.ThumbnailStatistics().Count, 2) << "the user ended it";
    m_view.WorkEndsAt = 4;
    m_murala->Configurator.DeleteThumbnailCache();
    EXPECT_EQ(m_murala->Configurator.ThumbnailStatistics().Count, 0);
    EXPECT_EQ(Item(2).ThumbnailNumber(), 3);
}

TEST_F(Configurator, CategoriesComeInTheOrderOfTheListAndAreSetForMany)
{
    m_murala->Desk.AddFiles({Picture("A.bmp")}, "Sea");
    m_murala->Desk.AddFiles({Picture("B.bmp")}, "Sky");
    m_murala->Desk.AddFiles({Picture("C.bmp")}, "sea");
    m_murala->Desk.AddFiles({Picture("D.bmp")}, "Sea");
    EXPECT_EQ(m_murala->Desk.Categories(), (std::vector<std::string>{"Sea", "Sky", "sea"}));
    m_murala->Core.Selection.SelectRows({0, 2}, 0);
    m_murala->Desk.SetCategory(Selected(), "Ice\nage");
    m_murala->Desk.Rename(Item(1), "pasted\nin two\rlines");
    Restart();
    EXPECT_EQ(m_murala->Desk.Categories(), (std::vector<std::string>{"Ice age", "Sky", "Sea"}));
    EXPECT_EQ(Item(1).Title, "pasted in two lines") << "the list has a line for each wallpaper";
}
