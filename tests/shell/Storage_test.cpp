#include "MuralaFixture.h"

#include "uSafeFile.h"

using namespace murala;

class Storage : public TMuralaFixture
{
protected:
    // How many files of the folder hold exactly this.
    int Copies(const std::string& content) const
    {
        int copies = 0;
        for (const auto& entry : std::filesystem::directory_iterator(NativePath(m_folder.Path())))
            if (entry.is_regular_file() && ReadWholeFile(PathText(entry.path())) == content)
                ++copies;
        return copies;
    }
};

TEST_F(Storage, AFailingSaveIsToldOnceAndLosesNothing)
{
    AddPictures(2);
    const std::string list = m_folder.File(ListFileName);
    const std::string before = ReadWholeFile(list);
    Block(ListFileName);
    m_murala->Storage.SaveList();
    m_murala->Core.Settings.Schedule.Frequency = 9;
    m_murala->Storage.SaveList();
    EXPECT_EQ(m_view.Messages.size(), 1U);
    Unblock(ListFileName);
    EXPECT_EQ(ReadWholeFile(list), before);
    Restart();
    EXPECT_EQ(m_murala->Core.Settings.Schedule.Frequency, 9)
        << "the settings are saved all the same";
    m_view.Placement = {1, 2, 3, 4};
    m_murala->Desk.RememberFolder("elsewhere");
    Restart();
    EXPECT_EQ(m_murala->Core.Settings.Memory.WallpaperPath, "elsewhere");
    EXPECT_EQ(m_murala->Core.Settings.Window.Placement.Left, 0) << "only what has changed is saved";
    m_view.Placement = {1, 2, 3, 4};
    for (const std::string_view file : {SettingsFileName, ListFileName}) {
        m_view.Messages.clear();
        for (int failure = 1; failure <= 2;
             ++failure) { // one after a save that worked is told again
            Block(file);
            m_murala->Storage.SaveList();
            m_murala->Storage.SaveList();
            EXPECT_EQ(m_view.Messages.size(), static_cast<std::size_t>(failure)) << file;
            Unblock(file);
            m_murala->Storage.SaveList();
        }
    }
    Block(SettingsFileName);
    Restart();
    EXPECT_EQ(CurrentIndex(), 0) << "the first one stands for the one that is not known";
    Unblock(SettingsFileName);
    Restart();
    EXPECT_EQ(m_murala->Core.Settings.Window.Placement.Left, 3);
}

TEST_F(Storage, AnUnreadableListIsKeptBesideTheNewOne)
{
    AddPictures(3);
    const std::string list = m_folder.File(ListFileName);
    std::string content = ReadWholeFile(list);
    content.insert(content.find("\r\n") + 2, "\"x.jpg\",\"x\",\"Tiled\",\"maybe\"\r\n");
    m_folder.Write(ListFileName, content);
    Restart();
    EXPECT_EQ(m_murala->Core.List.Count(), 1);
    ASSERT_EQ(m_view.Messages.size(), 1U);
    EXPECT_NE(m_view.Messages[0].find('2'), std::string::npos) << m_view.Messages[0];
    m_murala->Storage.SaveList();
    m_murala->Storage.SaveList();
    EXPECT_EQ(Copies(content), 1);
    Restart();
    EXPECT_EQ(m_murala->Core.List.Count(), 1);
    EXPECT_TRUE(m_view.Messages.empty());
    // One that cannot be reached is not an empty one.
    const std::string present = ReadWholeFile(list);
    Block(ListFileName);
    Restart();
    EXPECT_EQ(m_view.Messages.size(), 1U);
    Unblock(ListFileName);
    m_murala->Close();
    EXPECT_EQ(Copies(present), 1);
}

TEST_F(Storage, SettingsThatCannotBeReadForAWhileAreNotReplacedByDefaults)
{
    m_murala->Core.Settings.Schedule.Frequency = 7;
    AddPictures(2);
    const std::string content = ReadWholeFile(m_folder.File(SettingsFileName));
    Block(SettingsFileName);
    Restart();
    m_murala->LoadSettings({});
    EXPECT_EQ(m_view.Messages.size(), 1U) << "told once";
    m_murala->Storage.SaveList();
    Unblock(SettingsFileName);
    // What now is readable may still be what the first reading could not take.
    m_murala->Storage.SaveList();
    EXPECT_EQ(Copies(content), 1) << "kept under another name";
}

TEST_F(Storage, ASecondReadingThatFailsKeepsWhatTheFirstHadRead)
{
    m_murala->Core.Settings.Schedule.Frequency = 7;
    AddPictures(1);
    Restart();
    Block(SettingsFileName);
    m_murala->LoadSettings({});
    Unblock(SettingsFileName);
    EXPECT_EQ(m_murala->Core.Settings.Schedule.Frequency, 7);
    m_murala->LoadSettings({});
    m_murala->Core.Settings.Schedule.Frequency = 8;
    m_murala->Storage.ReloadSettings();
    EXPECT_EQ(m_murala->Core.Settings.Schedule.Frequency, 7) << "a third one works again";
    m_murala->Storage.SaveList();
    Restart();
    EXPECT_EQ(m_murala->Core.Settings.Schedule.Frequency, 7);
}

TEST_F(Storage, ANewUserStartsWithTheFirstSettings)
{
    m_folder.Write(FirstSettingsFileName, "[Main]\r\nViewMode=1\r\nMaxTitleLength=12\r\n");
    Restart();
    EXPECT_EQ(m_murala->Core.Settings.Window.ViewMode, vmThumbnails);
    EXPECT_FALSE(FileExists(m_folder.File(SettingsFileName))) << "reading saves nothing";
    m_murala->Desk.RememberFolder("elsewhere"); // saves one key
    m_folder.Write(FirstSettingsFileName, "[Main]\r\nViewMode=0\r\nPreviewSize=2\r\n");
    Restart();
    EXPECT_EQ(m_murala->Core.Settings.Window.ViewMode, vmThumbnails) << "it is the user's by now";
    EXPECT_EQ(m_murala->Core.Settings.Preferences.Titles.MaxTitleLength, 12);
    EXPECT_EQ(m_murala->Core.Settings.Window.PreviewSize, psLarge) << "all have not been saved yet";

    m_murala->Storage.SaveList();
    m_folder.Write(SettingsFileName, "[Main]\r\nWallpaperCount=0\r\n");
    m_murala->Storage.ReloadSettings();
    EXPECT_EQ(m_murala->Core.Settings.Window.PreviewSize, psNormal) << "not a new user any more";
}

TEST_F(Storage, FirstSettingsThatCannotBeReadAreToldToNewUsersOnly)
{
    std::filesystem::create_directory(NativePath(m_folder.File(FirstSettingsFileName)));
    Restart();
    EXPECT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(m_murala->Core.Settings.Window.PreviewSize, psNormal);
    m_murala->LoadSettings({});
    EXPECT_EQ(m_view.Messages.size(), 1U) << "once";
    m_murala->Storage.SaveList();
    Restart();
    EXPECT_TRUE(m_view.Messages.empty());
}
