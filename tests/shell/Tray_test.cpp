#include "MuralaFixture.h"

using namespace murala;

namespace
{

struct TFakeTrayView : TTrayView {
    explicit TFakeTrayView(TFakeMainView& view) : View(view) {}
    TFakeMainView& View;
    int Restored = 0, Raised = 0, Started = 0, Changed = 0;
    std::vector<std::size_t> Icons;
    std::string Choice; // the name of the entry that is chosen
    std::function<void()> OnMenu;
    std::vector<TPoint> Places;

    void RestoreWindow() override
    {
        Restored++;
        View.Visible = true;
    }
    void RaiseDialog() override { DialogsRaised++; }
    int DialogsRaised = 0;
    void BringToFront() override { Raised++; }
    void StartIcons() override { Started++; }
    void ShowIcon(const TIconImage& image) override { Icons.push_back(image.size()); }
    const TMenuItem* ShowMenu(const TMenuItem& menu, TPoint place) override
    {
        Places.push_back(place);
        if (OnMenu)
            OnMenu();
        return FindMenuItem(menu, Choice);
    }
    void TrayChanged() override { Changed++; }
};

// A frame, told apart by how many sizes it has.
std::shared_ptr<const TIconImage> NewFrame(int frame)
{
    auto image = std::make_shared<TIconImage>();
    for (int n = 0; n <= frame; ++n)
        image->emplace_back(16, 16);
    return image;
}

class Tray : public TMuralaFixture
{
protected:
    Tray()
    {
        m_services.TrayArea.Place = TTrayState::There;
        m_actions[aNext].OnExecute = [this] { m_murala->Applier.Next(); };
        m_actions[aNext].OnEnabled = [this] { return m_murala->Core.List.Count() >= 2; };
        m_actions[aTransparentIcons].OnExecute = [] {};
        m_actions[aTransparentIcons].OnChecked = [this] { return m_transparent; };
        m_actions[aExit].OnExecute = [this] { m_murala->Tray.Disable(); };
        Connect();
    }
    // The window's fake is the fixture's, which must be there first.
    // The icon goes before the areas that it is in.
    ~Tray() override { m_murala.reset(); }

    void Connect()
    {
        m_murala->Tray.Connect(m_window, m_actions, NewFrame, {&m_other});
        m_murala->Tray.Enable();
    }
    TFakeTrayArea& Area() { return m_services.TrayArea; }
    void LeftClick()
    {
        Area().Events->TrayLeftClick();
        m_services.Door.Open();
    }
    void RightClick()
    {
        Area().Events->TrayRightClick({50, 20});
        m_services.Door.Open();
    }
    void Chosen(const char* name)
    {
        Area().Events->TrayMenuChosen(name);
        m_services.Door.Open();
    }
    void Turn(TTrayState state)
    {
        Area().Turn(state);
        m_services.Door.Open();
    }
    // What the pop-up would show of the wallpapers.
    const TMenuItem& Wallpapers() { return *FindMenuItem(m_murala->Tray.Menu(), "Wallpaper1"); }

    TFakeTrayView m_window{m_view};
    TFakeTrayArea m_other;
    bool m_transparent = false;
    TActionList m_actions{[](const std::exception& error) { ADD_FAILURE() << error.what(); }};
};

} // namespace

TEST_F(Tray, ALeftClickHidesTheWindowAndBringsItBackAndPausesIgnoreIt)
{
    LeftClick();
    EXPECT_FALSE(m_view.Visible);
    LeftClick();
    EXPECT_TRUE(m_view.Visible);
    {
        const TPauseScope dialog(m_murala->Core.Pauses);
        EXPECT_FALSE(m_murala->Tray.IsEnabled());
        LeftClick();
        RightClick();
    }
    EXPECT_TRUE(m_murala->Tray.IsEnabled());
    EXPECT_TRUE(m_view.Visible);
    EXPECT_TRUE(m_window.Places.empty());
    EXPECT_EQ(m_window.DialogsRaised, 2) << "what waits for the user comes to the front";
    // A double click is two single ones.
    LeftClick();
    LeftClick();
    EXPECT_TRUE(m_view.Visible);
    m_actions.Execute(aExit);
    { // the end of a message does not enable it again
        const TPauseScope message(m_murala->Core.Pauses);
    }
    LeftClick();
    EXPECT_TRUE(m_view.Visible);
}

TEST_F(Tray, ClicksBeforeTheIconIsKnownAreIgnored)
{
    // The shell took it, and has not said so yet.
    Area().Turn(TTrayState::Missing);
    RightClick();
    Area().Events->TrayLeftClick();
    EXPECT_TRUE(m_window.Places.empty());
    EXPECT_TRUE(m_view.Visible);
}

TEST_F(Tray, TheChosenWallpaperIsAppliedSelectedAndNamedInTheHint)
{
    AddPictures(3);
    Apply(0);
    m_window.Choice = "CategoryMenuItem2";
    RightClick();
    EXPECT_EQ(CurrentIndex(), 2);
    EXPECT_EQ(SelectedRows(), std::vector<int>{2});
    EXPECT_EQ(Area().Look.Hint, "Murala (" + Item(2).FileName() + ")");
    EXPECT_TRUE(FindMenuItem(m_murala->Tray.Menu(), "CategoryMenuItem2")->Checked);
    EXPECT_FALSE(FindMenuItem(m_murala->Tray.Menu(), "CategoryMenuItem0")->Checked);
    // One that cannot be shown is told of, and the hint still names what is on the desktop.
    std::filesystem::remove(Item(1).FileName());
    m_window.Choice = "CategoryMenuItem1";
    RightClick();
    EXPECT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(Area().Look.Hint, "Murala (" + Item(2).FileName() + ")");
    m_window.Choice = "no such entry";
    RightClick();
    EXPECT_EQ(m_view.Messages.size(), 1U);
}

TEST_F(Tray, TheListMayChangeWhileTheMenuIsOpen)
{
    AddPictures(3);
    m_window.Choice = "CategoryMenuItem2";
    const std::string wanted = Item(2).FileName();
    m_window.OnMenu = [this] {
        RightClick(); // a second click while it is open
        EXPECT_FALSE(m_murala->Tray.IsEnabled());
        Select(0);
        m_murala->Desk.RemoveSelected();
    };
    RightClick();
    EXPECT_EQ(m_window.Places.size(), 1U);
    ASSERT_NE(m_murala->Core.Selection.Current(), nullptr);
    EXPECT_EQ(m_murala->Core.Selection.Current()->FileName(), wanted);
    m_window.OnMenu = [this] {
        m_murala->Core.Selection.SelectAll();
        m_murala->Desk.RemoveSelected();
    };
    m_window.Choice = "CategoryMenuItem0";
    m_services.Desktop.Calls.clear();
    RightClick();
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    // Another wallpaper where the one that is gone lay in memory.
    AddPictures(1);
    m_window.OnMenu = [this] {
        auto place = m_murala->Core.List.Delete(0);
        *place = TMuWallpaper(place->FileName());
        m_murala->Core.List.Add(std::move(place));
    };
    RightClick();
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    // A menu that failed leaves the next one possible.
    m_window.OnMenu = [] { throw std::runtime_error("no menu"); };
    RightClick();
    m_window.OnMenu = {};
    RightClick();
    EXPECT_EQ(m_window.Places.size(), 5U);
}

TEST_F(Tray, TheMenuIsMadeAnewOnlyWhenSomethingChanged)
{
    AddPictures(2);
    RightClick();
    const auto wallpapers = [this] { return Wallpapers().Items.front().Items.size(); };
    EXPECT_EQ(wallpapers(), 2U);
    const TMenuItem* before = &Wallpapers().Items.front();
    RightClick();
    EXPECT_EQ(&Wallpapers().Items.front(), before);
    m_murala->Desk.AddFiles({Picture("New.bmp")});
    RightClick();
    EXPECT_EQ(wallpapers(), 3U);
    m_murala->Desk.Rename(Item(0), "R & D");
    RightClick();
    EXPECT_EQ(FindMenuItem(m_murala->Tray.Menu(), "CategoryMenuItem0")->Caption, "R && D");
    {
        const TValueScope updating(m_murala->Core.Updating, true);
        m_murala->Desk.Rename(Item(0), "Later");
        m_murala->Tray.RebuildTrayMenus(true);
        EXPECT_EQ(FindMenuItem(m_murala->Tray.Menu(), "CategoryMenuItem0")->Caption, "R && D");
    }
    m_murala->Tray.RebuildTrayMenus(false);
    EXPECT_EQ(FindMenuItem(m_murala->Tray.Menu(), "CategoryMenuItem0")->Caption, "Later");
}

TEST_F(Tray, ActionsOfTheMenuFollowTheActionList)
{
    RightClick();
    const auto action = [this](const char* name) {
        return *FindMenuItem(m_murala->Tray.Menu(), name);
    };
    EXPECT_FALSE(action("aNext").Enabled);
    EXPECT_FALSE(action("aTransparentIcons").Checked);
    AddPictures(2);
    m_transparent = true;
    RightClick();
    EXPECT_TRUE(action("aNext").Enabled);
    EXPECT_TRUE(action("aTransparentIcons").Checked);
    m_transparent = false;
    RightClick();
    EXPECT_FALSE(action("aTransparentIcons").Checked);
    Apply(0);
    m_window.Choice = "aNext";
    RightClick();
    EXPECT_EQ(CurrentIndex(), 1);
}

TEST_F(Tray, TheMenuOpensAtTheTaskBarOrAtTheCursor)
{
    m_services.Desktop.Screen = {100, 80};
    RightClick();
    m_services.TaskBar.Rect = TRect{-2, -2, 102, 10};
    RightClick();
    EXPECT_EQ(m_window.Places, (std::vector<TPoint>{{42, 20}, {42, 10}}));
}

TEST_F(Tray, AnotherDesktopOfVeyraBringsItsSettingsAndNothingIsLost)
{
    AddPictures(3);
    Apply(1);
    m_murala->Core.Settings.Memory.LastChangeDate = 45000.25; // only in memory
    {
        TIniFile file = TIniFile::Load(m_services.ProgramFolder + "Murala.ini");
        file.Write("Main", "RefreshIcons", "0");
        file.Write("Main", "WallpaperCurrent3", Item(2).FileName());
        file.Save(m_services.ProgramFolder + "Murala.ini");
    }
    RightClick(); // the list is new to the menu: that reads the settings, too
    EXPECT_FALSE(m_murala->Core.Settings.Preferences.RefreshIcons);
    EXPECT_EQ(CurrentIndex(), 1);
    m_murala->Core.Settings.Preferences.RefreshIcons = true;
    RightClick();
    EXPECT_TRUE(m_murala->Core.Settings.Preferences.RefreshIcons);
    m_services.Siblings.VeyraDesktop = 3;
    m_services.Desktop.Calls.clear();
    RightClick();
    EXPECT_FALSE(m_murala->Core.Settings.Preferences.RefreshIcons);
    EXPECT_TRUE(m_murala->Core.Settings.Preferences.UseWallpaperCategories);
    EXPECT_EQ(m_murala->Core.Settings.Memory.LastChangeDate, 45000.25);
    EXPECT_EQ(CurrentIndex(), 2);
    EXPECT_TRUE(FindMenuItem(Wallpapers(), "CategoryMenuItem2")->Checked);
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
}

TEST_F(Tray, SettingsThatCouldNotBeSavedAreNotReadOverWhatIsHeld)
{
    AddPictures(1);
    Block(SettingsFileName);
    m_murala->Core.Settings.Schedule.Frequency = 7;
    m_murala->Storage.SaveSettings(AllSaveFlags);
    EXPECT_EQ(m_view.Messages.size(), 1U);
    Unblock(SettingsFileName);
    m_services.Siblings.VeyraDesktop = 2;
    RightClick();
    EXPECT_EQ(m_murala->Core.Settings.Schedule.Frequency, 7);
}

TEST_F(Tray, AnAppliedWallpaperRunsThroughTheFramesOnce)
{
    AddPictures(1);
    const int before = m_window.Started;
    Apply(0);
    EXPECT_EQ(m_window.Started, before + 1);
    std::vector<std::size_t> shown;
    bool more = true;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(more);
        more = m_murala->Tray.IconsTick();
        shown.push_back(Area().Look.Icon->size());
    }
    EXPECT_FALSE(more);
    EXPECT_EQ(shown, (std::vector<std::size_t>{2, 3, 1}));
    EXPECT_EQ(m_window.Icons, shown);
}

TEST_F(Tray, ALostIconComesBackWithTheNextTickUnlessAScreenSaverRuns)
{
    EXPECT_EQ(Area().Added, 1);
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(Area().Added, 1);
    Area().Restart();
    m_services.ScreenSaver.Running = true;
    m_murala->Ticker.RefreshTick();
    EXPECT_FALSE(Area().HasIcon);
    m_services.ScreenSaver.Running = false;
    Area().Refuses = true; // the shell is not yet up
    m_murala->Ticker.RefreshTick();
    EXPECT_FALSE(m_murala->Tray.CanHide());
    Area().Refuses = false;
    m_murala->Ticker.RefreshTick();
    EXPECT_TRUE(Area().HasIcon);
    EXPECT_TRUE(m_murala->Tray.CanHide());
    EXPECT_EQ(Area().Look.Icon->size(), 1U);
    m_murala->Tray.Remove();
    EXPECT_FALSE(Area().HasIcon);
    m_murala->Ticker.RefreshTick();
    EXPECT_FALSE(Area().HasIcon);
}

TEST_F(Tray, TheBestAreaHasTheIconWhateverComesAndGoes)
{
    const auto where = [this] {
        return std::string(Area().HasIcon ? "own" : "") + (m_other.HasIcon ? "other" : "");
    };
    Turn(TTrayState::Missing);
    EXPECT_EQ(where(), "");
    EXPECT_FALSE(m_murala->Tray.CanHide());
    m_other.Place = TTrayState::There;
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(where(), "other");
    Turn(TTrayState::Asking); // the other one stays until the answer is there
    EXPECT_EQ(where(), "other");
    Turn(TTrayState::There);
    EXPECT_EQ(where(), "own");
    Turn(TTrayState::Missing);
    EXPECT_EQ(where(), "other");
    EXPECT_GE(m_window.Changed, 4);
}

TEST_F(Tray, ADesktopThatDrawsTheMenuHasTheLatest)
{
    Area().Draws = true;
    AddPictures(2);
    m_murala->Ticker.RefreshTick();
    EXPECT_NE(FindMenuItem(Area().Menu, "CategoryMenuItem1"), nullptr);
    const int told = Area().Menus;
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(Area().Menus, told);
    m_murala->Desk.AddFiles({Picture("New.bmp")});
    Area().Events->TrayMenuOpens();
    EXPECT_NE(FindMenuItem(Area().Menu, "CategoryMenuItem2"), nullptr);
    Chosen("CategoryMenuItem1");
    EXPECT_EQ(CurrentIndex(), 1);
    EXPECT_TRUE(FindMenuItem(Area().Menu, "CategoryMenuItem1")->Checked);
    Chosen("aExit");
    EXPECT_FALSE(m_murala->Tray.IsEnabled());
    Chosen("CategoryMenuItem0");
    EXPECT_EQ(CurrentIndex(), 1);
}

TEST_F(Tray, TheMenuOfThousandsIsMadeWhenItIsWantedAndTheDesktopKeepsIt)
{
    Area().Draws = true;
    std::vector<std::string> files;
    for (int i = 0; i < 300; ++i)
        files.push_back(Picture("P" + std::to_string(i) + ".bmp"));
    m_murala->Desk.AddFiles(files);
    const auto told = [this](const char* name) { return FindMenuItem(Area().Menu, name); };
    const auto isHeld = [this] {
        return FindMenuItem(m_murala->Tray.Menu(), "CategoryMenuItem299") != nullptr;
    };
    m_murala->Tray.Enable(); // as at the start
    EXPECT_EQ(told("CategoryMenuItem299"), nullptr);
    EXPECT_NE(told("aExit"), nullptr);
    Area().Events->TrayMenuOpens();
    EXPECT_NE(told("CategoryMenuItem299"), nullptr);
    Chosen("CategoryMenuItem4");
    EXPECT_TRUE(told("CategoryMenuItem4")->Checked);
    // Where that takes the desktop long it waits until nobody is at the menu.
    Area().IsShown = Area().IsSlow = true;
    Chosen("CategoryMenuItem5");
    for (int i = 0; i < 3; ++i)
        m_murala->Ticker.RefreshTick();
    EXPECT_TRUE(isHeld());
    EXPECT_FALSE(told("CategoryMenuItem5")->Checked);
    Area().IsShown = false;
    m_murala->Ticker.RefreshTick();
    EXPECT_TRUE(isHeld());
    m_murala->Ticker.RefreshTick();
    EXPECT_FALSE(isHeld());
    EXPECT_TRUE(told("CategoryMenuItem5")->Checked);

    // What the desktop was told holds, whatever becomes of the list: it is another wallpaper's
    // number now.
    Select(0);
    m_murala->Desk.RemoveSelected();
    const std::string wanted = Item(298).FileName();
    Chosen("CategoryMenuItem299");
    EXPECT_EQ(m_murala->Core.Selection.Current()->FileName(), wanted);
    EXPECT_NE(told("CategoryMenuItem299"), nullptr);
    m_services.Desktop.Calls.clear();
    Chosen("CategoryMenuItem0"); // was removed
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    m_view.Visible = false;
    Chosen("MoreCategoryMenuItem"); // too deep for the desktop
    EXPECT_TRUE(m_view.Visible);

    Area().Events->TrayMenuOpens();
    EXPECT_EQ(told("CategoryMenuItem299"), nullptr);
    EXPECT_TRUE(told("CategoryMenuItem298")->Checked);
}

TEST_F(Tray, HidingIsExplainedOnceForAllTimes)
{
    const std::string ini = m_services.ProgramFolder + "Murala.ini";
    m_murala->Tray.ExplainHiding();
    m_murala->Tray.ExplainHiding();
    EXPECT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(TIniFile::Load(ini).ReadText("Main", "TrayExplained", ""), "1");
    m_murala->Tray.Remove();
    Restart();
    Connect();
    m_murala->Storage.SaveSettings(AllSaveFlags);
    m_murala->Tray.ExplainHiding();
    EXPECT_TRUE(m_view.Messages.empty());
}
