#include "MuralaFixture.h"

using namespace murala;

namespace
{

struct TFakeTrayView : TTrayView {
    explicit TFakeTrayView(TFakeMainView& view) : View(view) {}
    TFakeMainView& View;
    int Started = 0, Changed = 0, DialogsRaised = 0;
    std::vector<std::size_t> Icons;
    std::string Choice;           // the caption of the entry that is chosen
    std::function<void()> OnMenu; // after the menu was read
    TMenuEntries Shown;
    std::vector<TPoint> Places;

    void RestoreWindow() override { View.Visible = true; }
    void RaiseDialog() override { DialogsRaised++; }
    void BringToFront() override {}
    void StartIcons() override { Started++; }
    void ShowIcon(const TIconImage& image) override { Icons.push_back(image.size()); }
    TMenuTarget ShowMenu(TTrayModel& menu, TPoint place) override
    {
        Places.push_back(place);
        const TMenuEntries shown = Shown = AllEntries(menu);
        if (OnMenu)
            OnMenu();
        const TMenuEntry* chosen = Find(shown, Choice);
        return chosen != nullptr ? chosen->Target : TMenuTarget();
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
        m_actions[aOptions].OnExecute = [] {};
        Connect();
    }
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
    void Chosen(const TMenuTarget& target)
    {
        Area().Events->TrayMenuChosen(target);
        m_services.Door.Open();
    }
    void Turn(TTrayState state)
    {
        Area().Turn(state);
        m_services.Door.Open();
    }
    const TMenuEntry& Shown(const char* caption) { return *Find(m_window.Shown, caption); }

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
    m_murala->Tray.Disable();
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
    m_window.Choice = "Picture2";
    RightClick();
    EXPECT_EQ(CurrentIndex(), 2);
    EXPECT_EQ(SelectedRows(), std::vector<int>{2});
    EXPECT_EQ(Area().Look.Hint, "Murala (" + Item(2).FileName() + ")");
    // One that cannot be shown is told of, and the hint still names what is on the desktop.
    std::filesystem::remove(Item(1).FileName());
    m_window.Choice = "Picture1";
    RightClick();
    EXPECT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(Area().Look.Hint, "Murala (" + Item(2).FileName() + ")");
    m_window.Choice = "no such entry";
    RightClick();
    EXPECT_EQ(m_view.Messages.size(), 1U);
}

TEST_F(Tray, WhatLeadsToTheCurrentWallpaperIsCheckedUntilThatIsAnother)
{
    AddPictures(2);
    Item(0).Category = "Sea & Land";
    Apply(0);
    RightClick(); // the list is new to the menu
    EXPECT_TRUE(Shown("Picture0").Checked && Shown("Sea && Land").Checked);
    EXPECT_FALSE(Shown("Picture1").Checked || Shown("Wallpaper").Checked);
    Apply(1);
    Apply(0);
    RightClick();
    EXPECT_TRUE(Shown("Picture0").Checked);
    EXPECT_FALSE(Shown("Picture1").Checked || Shown("Sea && Land").Checked);
    m_murala->Desk.Rename(Item(1), "Other");
    RightClick();
    EXPECT_TRUE(Shown("Sea && Land").Checked);
    m_murala->Core.Settings.Preferences.UseWallpaperCategories = false;
    RightClick();
    EXPECT_EQ(Find(m_window.Shown, "Sea && Land"), nullptr);
}

TEST_F(Tray, TheListMayChangeWhileTheMenuIsOpen)
{
    AddPictures(3);
    m_window.Choice = "Picture2";
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
    m_window.Choice = "Picture1";
    m_services.Desktop.Calls.clear();
    RightClick();
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    // Another wallpaper where the one that is gone lay in memory.
    AddPictures(1);
    m_window.Choice = "Picture0";
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

TEST_F(Tray, ActionsOfTheMenuFollowTheActionList)
{
    m_actions[aNext].Caption = "next", m_actions[aTransparentIcons].Caption = "transparent";
    m_actions[aOptions].Caption = "show";
    RightClick();
    std::string captions;
    for (const TMenuEntry& entry : m_window.Shown)
        captions += ' ' + (entry.IsSeparator() ? "-" : entry.Caption);
    // Nobody offers the others.
    EXPECT_EQ(captions, " show - Wallpaper - show next - transparent - -");
    EXPECT_FALSE(Shown("next").Enabled || Shown("transparent").Checked);
    AddPictures(2);
    m_transparent = true;
    RightClick();
    EXPECT_TRUE(Shown("next").Enabled && Shown("transparent").Checked);
    Apply(0);
    m_window.Choice = "next";
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
    EXPECT_TRUE(Shown("Picture2").Checked);
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
    const auto told = [this](const char* caption) { return Find(Area().Told, caption); };
    AddPictures(2);
    {
        const TValueScope updating(m_murala->Core.Updating, true);
        m_murala->Tray.RefreshMenu();
        EXPECT_EQ(Area().Menus, 0);
    }
    m_murala->Ticker.RefreshTick();
    ASSERT_NE(told("Picture1"), nullptr);
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(Area().Menus, 1) << "nothing has changed";
    m_murala->Desk.AddFiles({Picture("New.bmp")});
    Area().Events->TrayMenuOpens();
    ASSERT_NE(told("New"), nullptr);
    const TMenuTarget first = told("Picture0")->Target, second = told("Picture1")->Target;
    Chosen(second);
    EXPECT_EQ(CurrentIndex(), 1);
    EXPECT_TRUE(told("Picture1")->Checked);
    // The desktop may still show what it was told before.
    Select(0);
    m_murala->Desk.RemoveSelected();
    m_services.Desktop.Calls.clear();
    Chosen(first);
    EXPECT_TRUE(m_services.Desktop.Calls.empty());
    Chosen(second);
    EXPECT_EQ(CurrentIndex(), 0);
    m_view.Visible = false;
    Chosen(TMenuBelow{}); // too deep for the desktop
    EXPECT_TRUE(m_view.Visible);
    m_murala->Tray.Disable();
    Chosen(told("New")->Target);
    EXPECT_EQ(CurrentIndex(), 0);
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
