#include "uSchedule.h"

#include "uText.h"

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

std::string LastChangeText(TDateTime lastChange)
{
    return "Last Change: " + DateTimeToDisplayText(lastChange);
}

std::string DescribeSchedule(const TScheduleSettings& schedule)
{
    if (!schedule.Use)
        return "The wallpaper does not change by itself.";
    const auto units = static_cast<std::size_t>(std::clamp<int>(schedule.Units, suWeek, suMinute));
    const int frequency = std::max(schedule.Frequency, 1);
    std::string text =
        FormatText("The wallpaper changes after %d %s",
                   {std::to_string(frequency),
                    frequency > 1 ? ScheduleUnitPluralNames[units] : ScheduleUnitNames[units]});
    if (units == suWeek)
        text += FormatText(", on %s", {WeekdayNames[std::clamp(schedule.On, 0, 6)]});
    if (units <= suDay) {
        const TDateParts at = DecodeDateTime(TimeOf(schedule.At));
        const std::string minute = std::to_string(at.Minute);
        text +=
            FormatText(" at %d:%s%s", {std::to_string(at.Hour), at.Minute < 10 ? "0" : "", minute});
    }
    return text + ".";
}

} // namespace murala
