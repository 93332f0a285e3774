#include "MuralaFixture.h"

#include "uIconBox.h"

using namespace murala;

class AddOnDesk : public TMuralaFixture
{
protected:
    AddOnDesk() { m_services.Desktop.Screen = {400, 300}; }

    // What differs between two pictures: nothing, or the rectangle around it.
    static TRect Difference(const TBitmap& a, const TBitmap& b)
    {
        TRect box{a.Width(), a.Height(), 0, 0};
        for (int y = 0; y < a.Height(); ++y)
            for (int x = 0; x < a.Width(); ++x)
                if ((a.Row(y)[x] ^ b.Row(y)[x]) & 0xFFFFFF)
                    box = {std::min(box.Left, x), std::min(box.Top, y), std::max(box.Right, x + 1),
                           std::max(box.Bottom, y + 1)};
        return box.Right == 0 ? TRect{} : box;
    }
    static TBitmap Plain() { return EvenBitmap(400, 300, ColorToPixel(0x204060)); }
    // The refresh tick at a moment; how often a picture was installed by it.
    std::size_t TickAt(TDateTime now)
    {
        m_services.Clock.Time = now;
        m_services.Desktop.Calls.clear();
        m_murala->Ticker.RefreshTick();
        return static_cast<std::size_t>(
            std::ranges::count(m_services.Desktop.Calls, "install MuralaWallpaper.bmp 0"));
    }
};

TEST_F(AddOnDesk, TheDesktopHasBothAndThePreviewTheCalendarOnly)
{
    m_services.IconView.HasIcons = true;
    m_services.IconView.Region = {{35, 25, 80, 90}};
    AddPictures(1);
    m_murala->AddOns.Switch(&TAddOnSwitches::UseIconBox, true);
    m_murala->AddOns.SetIconBox({-128, true, false, 0x332211});
    Apply(0);
    TBitmap expected = Plain();
    DrawIconBox(expected, m_murala->Core.Settings.IconBox, m_services.IconView.Region);
    EXPECT_EQ(Difference(expected, Plain()), (TRect{30, 20, 85, 95}));
    EXPECT_EQ(Difference(Installed(), expected), TRect{}) << "tinted once";
    ASSERT_EQ(LoadPreview(), "");
    EXPECT_EQ(Difference(m_murala->Preview.Picture(400), Plain()), TRect{});
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, true);
    expected = m_murala->Preview.Picture(400);
    // 320 x 240 in the middle of 400 x 300
    EXPECT_EQ(Difference(expected, Plain()), (TRect{40, 30, 360, 270}));
    EXPECT_EQ(m_services.Text.Drawn.front().Text, "December 2025");
    Apply(0);
    DrawIconBox(expected, m_murala->Core.Settings.IconBox, m_services.IconView.Region);
    EXPECT_EQ(Difference(Installed(), expected), TRect{}) << "the calendar, then the box over it";
    for (const char* problem : {"It does not answer.", ""}) { // and then it goes
        m_services.IconView.RegionProblem = problem;
        m_services.IconView.HasIcons = *problem != '\0';
        Apply(0);
        EXPECT_EQ(Difference(Installed(), m_murala->Preview.Picture(400)), TRect{}) << problem;
        EXPECT_NE(m_murala->AddOns.Problems(), "");
    }
}

TEST_F(AddOnDesk, TheSwitchesAndTheIconBoxOptionsAreSaved)
{
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, true);
    m_murala->AddOns.Switch(&TAddOnSwitches::UseIconBox, true);
    m_murala->AddOns.SetIconBox({-255, true, true, 0x123456});
    Restart();
    EXPECT_TRUE(m_murala->Core.Settings.AddOns.UseCalendar);
    EXPECT_TRUE(m_murala->Core.Settings.AddOns.UseIconBox);
    const TIconBoxSettings options = m_murala->Core.Settings.IconBox;
    EXPECT_EQ(options.Gamma, -255);
    EXPECT_TRUE(options.Border && options.OnlyIcons);
    EXPECT_EQ(options.BorderColor, 0x123456U);
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, false);
    Restart();
    EXPECT_FALSE(m_murala->Core.Settings.AddOns.UseCalendar);
}

TEST_F(AddOnDesk, ACalendarThatCannotBeDrawnIsToldAndTheWallpaperComesWithoutIt)
{
    m_services.IconView.HasIcons = true;
    m_services.IconView.Region = {{20, 10, 30, 20}};
    AddPictures(1);
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, true);
    m_murala->AddOns.Switch(&TAddOnSwitches::UseIconBox, true);
    m_services.Text.Fails = true;
    Apply(0);
    EXPECT_TRUE(m_view.Messages.empty());
    EXPECT_TRUE(m_view.Status.starts_with("The calendar is left out. ")) << m_view.Status;
    EXPECT_EQ(Difference(Installed(), Plain()), (TRect{15, 5, 35, 25})) << "with its icon box";
    EXPECT_TRUE(m_murala->Core.Settings.Memory.CalendarDate == m_services.Clock.Time);

    m_murala->Core.Status.SetProblem(""); // of the desktop
    EXPECT_TRUE(m_view.Status.starts_with("Picture0 - "));
    ASSERT_EQ(LoadPreview(), "");
    EXPECT_EQ(Difference(m_murala->Preview.Picture(400), Plain()), TRect{});
    EXPECT_TRUE(m_view.Status.starts_with("The calendar is left out. "));
    m_services.Text.Fails = false;
    m_murala->Preview.Picture(400);
    EXPECT_TRUE(m_view.Status.starts_with("Picture0 - ")) << "what is mended is told of no more";
}

TEST_F(AddOnDesk, ANewDayIsDrawnOnce)
{
    AddPictures(2);
    Apply(1);
    const TDateTime day = DayOf(m_services.Clock.Time);
    EXPECT_EQ(TickAt(day + 1), 0U) << "without a calendar there is no day to draw";
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, true);
    Apply(1);
    m_services.Text.Drawn.clear();
    const struct {
        TDateTime Now;
        std::size_t Installed;
        const char* Why;
    } steps[] = {
        {day + 1 + 0.9999, 0, "the last seconds of the day"},
        {day + 2, 1, "midnight"},
        {day + 2 + 5 / SecondsPerDay, 0, "once"},
        {day + 9.3, 1, "a suspended machine wakes up"},
        {day + 9.3 + 5 / SecondsPerDay, 0, "one day, however many have passed"},
        {day + 8.9, 1, "the clock was set back over midnight"},
        {day + 8.7, 0, "the clock was set back within the day"},
        {day + 9, 1, "the same midnight again"},
    };
    for (const auto& step : steps)
        EXPECT_EQ(TickAt(step.Now), step.Installed) << step.Why;
    EXPECT_EQ(CurrentIndex(), 1);
}

TEST_F(AddOnDesk, TheDaysWorkIsUpdating)
{
    AddPictures(1);
    Item(0).Effect = "Snow";
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, true);
    Apply(0);
    m_services.Launcher.Started.clear();
    const TDateTime lastChange = m_murala->Core.Settings.Memory.LastChangeDate;
    struct : TListener {
        TCore* Core = nullptr;
        bool WasUpdating = false;
        int Previews = 0;
        void CurrentChanged(TCurrentChange) override { WasUpdating = Core->Updating; }
        void PreviewChanged(bool) override { Previews++; }
    } listener;
    listener.Core = &m_murala->Core;
    TSubscription subscription = m_murala->Core.Listeners.Listen(listener);
    EXPECT_EQ(TickAt(m_services.Clock.Time + 3), 1U);
    subscription.reset();
    EXPECT_TRUE(listener.WasUpdating);
    EXPECT_EQ(listener.Previews, 1) << "the preview follows the day";
    EXPECT_FALSE(m_murala->Core.Updating);
    EXPECT_TRUE(m_services.Launcher.Started.empty());
    EXPECT_EQ(m_murala->Core.Settings.Memory.LastChangeDate, lastChange) << "the schedule goes on";
    const TDateTime drawn = m_services.Clock.Time;
    Restart();
    EXPECT_NEAR(m_murala->Core.Settings.Memory.CalendarDate, drawn, 1 / SecondsPerDay);
}

TEST_F(AddOnDesk, ANewDayWaitsForTheScreenSaverAndForDialogs)
{
    AddPictures(1);
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, true);
    const TDateTime next = m_services.Clock.Time + 1;
    EXPECT_EQ(TickAt(next - 1), 0U) << "the desktop is the user's own";
    Apply(0);
    m_services.ScreenSaver.Running = true;
    EXPECT_EQ(TickAt(next), 0U);
    m_services.ScreenSaver.Running = false;
    {
        const TPauseScope dialog(m_murala->Core.Pauses);
        EXPECT_EQ(TickAt(next), 0U);
    }
    EXPECT_EQ(TickAt(next), 1U);
}

TEST_F(AddOnDesk, APictureThatIsGoneIsTriedOnceAMinute)
{
    AddPictures(1);
    m_murala->AddOns.Switch(&TAddOnSwitches::UseCalendar, true);
    Apply(0);
    m_murala->Preview.Release();
    std::filesystem::remove(NativePath(Item(0).FileName()));
    const int before = m_services.Siblings.Notified;
    const TDateTime next = m_services.Clock.Time + 1;
    for (int tick = 0; tick < 120; ++tick)
        EXPECT_EQ(TickAt(next + tick * 5 / SecondsPerDay), 0U);
    EXPECT_NEAR(m_services.Siblings.Notified - before, 10, 1);
    EXPECT_TRUE(m_view.Messages.empty());
    Picture("Picture0.bmp");
    EXPECT_EQ(TickAt(next + 1), 1U);
}
