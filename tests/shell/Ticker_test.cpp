#include "MuralaFixture.h"

using namespace murala;

class Ticker : public TMuralaFixture
{
protected:
    int TickAfter(double minutes)
    {
        m_services.Clock.Time += minutes / MinutesPerDay;
        m_murala->Ticker.ScheduleTick();
        return CurrentIndex();
    }
    void StartSchedule() { m_murala->Ticker.SetSchedule({true, 1, suMinute, 0.5, 0}); }
};

TEST_F(Ticker, TheScheduleChangesOnceWhenItIsDue)
{
    AddPictures(3);
    Apply(0);
    StartSchedule();
    EXPECT_EQ(TickAfter(0.9), 0);
    EXPECT_EQ(TickAfter(0.2), 1);
    EXPECT_EQ(TickAfter(0), 1);
    EXPECT_EQ(TickAfter(60.0 * 24 * 30), 2) << "a suspended machine: one change";
    EXPECT_EQ(TickAfter(0.5), 2);
    m_services.ScreenSaver.Running = true;
    EXPECT_EQ(TickAfter(5), 2);
    m_services.ScreenSaver.Running = false;
    EXPECT_EQ(TickAfter(0), 0);
    EXPECT_EQ(TickAfter(-60.0 * 24), 0) << "the clock was set back";
    EXPECT_EQ(TickAfter(1.1), 1);
    m_murala->Core.Updating = true;
    EXPECT_EQ(TickAfter(2), 1);
}

TEST_F(Ticker, AnotherScreenHasTheWallpaperInItsSize)
{
    AddPictures(2);
    const auto installed = [this] { return m_services.Desktop.Calls.size(); };
    const auto tell = [this] {
        m_services.Desktop.OnScreens();
        m_services.Door.Open();
    };
    m_services.Desktop.Screen = {80, 60};
    tell();
    EXPECT_EQ(installed(), 0U) << "the desktop is the user's own";
    Apply(1);
    StartSchedule();
    const TDateTime changed = m_murala->Core.Settings.Memory.LastChangeDate;
    m_services.Clock.Time += 0.5 / MinutesPerDay;
    m_services.Desktop.Screen = {48, 32};
    tell();
    EXPECT_EQ(Installed().Size(), (TSize{48, 32}));
    EXPECT_EQ(CurrentIndex(), 1);
    EXPECT_EQ(m_murala->Core.Settings.Memory.LastChangeDate, changed);
    m_services.Desktop.Screen = {64, 64};
    m_services.ScreenSaver.Running = true;
    tell();
    m_services.ScreenSaver.Running = false;
    {
        const TPauseScope dialog(m_murala->Core.Pauses);
        m_murala->Ticker.RefreshTick();
        EXPECT_EQ(Installed().Size(), (TSize{48, 32}));
    }
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(Installed().Size(), (TSize{64, 64}));
    const std::size_t calls = installed();
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(installed(), calls);
    m_services.Desktop.OnScreens();
    m_murala.reset();
    m_services.Door.Open();
    tell(); // the desktop outlives the program
}

TEST_F(Ticker, TheSchedulePassesOverPicturesThatCannotBeShown)
{
    AddPictures(2);
    m_murala->Desk.AddFiles({m_services.ProgramFolder + "Missing.jpg"});
    Apply(1);
    StartSchedule();
    EXPECT_EQ(TickAfter(2), 1);
    EXPECT_EQ(SelectedRows(), std::vector<int>{1}) << "the selection stays the user's";
    EXPECT_TRUE(m_view.Messages.empty()) << "nobody is there to close a message box";
    EXPECT_EQ(TickAfter(1.0 / 60), 0);
    EXPECT_EQ(SelectedRows(), std::vector<int>{0});
    m_services.Siblings.RovaneRuns = true;
    EXPECT_EQ(TickAfter(2), 1);
    EXPECT_FALSE(m_services.Siblings.RovaneRuns) << "the new wallpaper has no effect";
}

TEST_F(Ticker, WhenNoPictureCanBeReachedTheScheduleRests)
{
    std::vector<std::string> files;
    for (int i = 0; i < 100; ++i)
        files.push_back(m_services.ProgramFolder + std::to_string(i) + ".jpg");
    m_murala->Desk.AddFiles(files);
    Select(7);
    StartSchedule();
    m_services.Clock.Time += 2 / MinutesPerDay;
    const int before = m_services.Siblings.Notified;
    for (int second = 0; second < 600; ++second)
        TickAfter(1.0 / 60);
    EXPECT_LE(m_services.Siblings.Notified - before, 16) << "five at once, then one a minute";
    EXPECT_GE(m_services.Siblings.Notified - before, 12);
    EXPECT_EQ(SelectedRows(), std::vector<int>{7});
    const int rested = m_services.Siblings.Notified;
    m_murala->Ticker.SetSchedule(m_murala->Core.Settings.Schedule);
    TickAfter(1); // minutes
    TickAfter(1.0 / 60);
    EXPECT_EQ(m_services.Siblings.Notified - rested, 2)
        << "a new schedule tries five at once again";
    TickAfter(10); // a minute's rest begins
    m_services.Clock.Time -= 1;
    TickAfter(0);
    const int setBack = m_services.Siblings.Notified;
    TickAfter(1.1);
    EXPECT_EQ(m_services.Siblings.Notified, setBack + 1) << "and so does a clock that is set back";
}

TEST_F(Ticker, AMessageHoldsTheScheduleUp)
{
    AddPictures(3);
    m_murala->Desk.AddFiles({m_services.ProgramFolder + "Missing.jpg"});
    StartSchedule();
    const TDateTime lastChange = m_murala->Core.Settings.Memory.LastChangeDate;
    m_view.OnMessage = [this] { EXPECT_EQ(TickAfter(10), -1) << "it failed"; };
    Apply(3);
    EXPECT_EQ(m_view.Messages.size(), 1U);
    EXPECT_EQ(m_murala->Core.Settings.Memory.LastChangeDate, lastChange);
    EXPECT_EQ(TickAfter(0), 0);
}

TEST_F(Ticker, LabelsAreRefreshedOnlyForAFlaggedWallpaper)
{
    m_services.IconView.HasIcons = true;
    AddPictures(1);
    Apply(0);
    m_services.IconView.Questions = 0;
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(m_services.IconView.Questions, 0);
    m_murala->Editor.ToggleTransparentIcons(Selected());
    m_services.IconView.LabelColor = 0; // the shell went back to opaque by itself
    m_services.ScreenSaver.Running = true;
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(m_services.IconView.LabelColor, 0U);
    m_services.ScreenSaver.Running = false;
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(m_services.IconView.LabelColor, NoColor);
    m_services.IconView.Paintings = 0;
    m_murala->Ticker.RefreshTick();
    EXPECT_EQ(m_services.IconView.Paintings, 0) << "no painting where nothing changed";
}
