#include "uSchedule.h"

#include <algorithm>
#include <cmath>

namespace murala
{

namespace
{

constexpr TDateTime UnitLengths[] = {7.0, 1.0, 1.0 / HoursPerDay, 1.0 / MinutesPerDay};

// Dates are compared in milliseconds: sums of fractions of a day are a little off.
bool IsEarlier(TDateTime a, TDateTime b)
{
    constexpr double millisecondsPerDay = SecondsPerDay * 1000.0;
    return std::llround(a * millisecondsPerDay) < std::llround(b * millisecondsPerDay);
}

} // namespace

bool IsChangeDue(const TScheduleSettings& schedule, TDateTime lastChange, TDateTime now)
{
    const int units = std::clamp<int>(schedule.Units, suWeek, suMinute);
    const TDateTime due = lastChange + std::max(schedule.Frequency, 1) * UnitLengths[units];
    if (IsEarlier(now, due))
        return false;
    if (units <= suDay && IsEarlier(TimeOf(now), schedule.At))
        return false;
    return units != suWeek || WeekdayOf(now) == std::clamp(schedule.On, 0, 6);
}

TDateTime LastChangeBefore(TDateTime lastChange, TDateTime now)
{
    return std::min(lastChange, now);
}

TScheduleSettings ScheduleOf(const TMuSettings& settings)
{
    return {settings.UseSchedule, settings.ScheduleFrequency, settings.ScheduleUnits,
            settings.ScheduleAt, settings.ScheduleOn};
}

void SetScheduleOf(TMuSettings& settings, const TScheduleSettings& schedule)
{
    settings.UseSchedule = schedule.Use;
    settings.ScheduleFrequency = schedule.Frequency;
    settings.ScheduleUnits = schedule.Units;
    settings.ScheduleAt = schedule.At;
    settings.ScheduleOn = schedule.On;
}

} // namespace murala
