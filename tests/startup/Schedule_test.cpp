#include "uSchedule.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TDateTime At(int day, int hour, int minute = 0, int second = 0)
{
    // 2 March 2026 is a Monday.
    return *EncodeDateTime({2026, 3, day, hour, minute, second});
}

} // namespace

TEST(Schedule, ChangesWhenTheUnitsConditionsHold)
{
    const TScheduleSettings twoHours{true, 2, suHour, 0.5, 0};
    const TScheduleSettings daily{true, 1, suDay, 0.5, 0};
    const TScheduleSettings mondays{true, 1, suWeek, 0.5, 0};
    const struct {
        const char* What;
        TScheduleSettings Schedule;
        TDateTime LastChange, Now;
        bool IsDue;
    } cases[] = {
        {"a second early", twoHours, At(2, 10), At(2, 11, 59, 59), false},
        {"on the second", twoHours, At(2, 10), At(2, 12), true},
        {"minutes", {true, 1, suMinute, 0, 0}, At(2, 10), At(2, 10, 1), true},
        {"interval passed, time of day not yet", daily, At(2, 8), At(3, 11, 59, 59), false},
        {"interval and time of day", daily, At(2, 8), At(3, 12), true},
        {"time of day, interval not yet", daily, At(2, 13), At(3, 12, 30), false},
        {"weeks passed, but a Sunday", mondays, At(2, 8), At(22, 13), false},
        {"a Monday before the time", mondays, At(2, 8), At(23, 11), false},
        {"a Monday after the time", mondays, At(2, 8), At(23, 13), true},
        {"no sense in the file: daily at least",
         {true, 0, static_cast<TScheduleUnits>(9), 0, 0},
         At(2, 8),
         At(2, 8),
         false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsChangeDue(c.Schedule, c.LastChange, c.Now), c.IsDue) << c.What;
}

TEST(Schedule, EveryMinuteOfADayIsMetOnTheSecond)
{
    const TScheduleSettings schedule{true, 1, suMinute, 0, 0};
    for (int minute = 0; minute < 24 * 60 - 1; ++minute) {
        const TDateTime last = At(5, minute / 60, minute % 60);
        const int next = minute + 1;
        EXPECT_TRUE(IsChangeDue(schedule, last, At(5, next / 60, next % 60))) << minute;
        EXPECT_FALSE(IsChangeDue(schedule, last, At(5, minute / 60, minute % 60, 59))) << minute;
    }
}

TEST(Schedule, AClockSetBackDoesNotStopIt)
{
    const TScheduleSettings hourly{true, 1, suHour, 0, 0};
    const TDateTime last = At(20, 12), now = At(3, 9);
    EXPECT_FALSE(IsChangeDue(hourly, LastChangeBefore(last, now), now));
    EXPECT_TRUE(IsChangeDue(hourly, LastChangeBefore(last, now), At(3, 10)));
    EXPECT_EQ(LastChangeBefore(At(3, 8), now), At(3, 8));
}
