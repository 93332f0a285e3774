// When the wallpaper is to be changed by itself.
#pragma once

#include "uDateTime.h"
#include "uSettings.h"

#include <string>
#include <string_view>

namespace murala
{

inline constexpr std::string_view ScheduleUnitNames[] = {"Week", "Day", "Hour", "Minute"};
inline constexpr std::string_view ScheduleUnitPluralNames[] = {"Weeks", "Days", "Hours", "Minutes"};
inline constexpr std::string_view WeekdayNames[] = {
    "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday",
};

// Whether a change is due at `now`. Values outside of what the dialog offers count as the nearest
// one that it offers.
bool IsChangeDue(const TScheduleSettings& schedule, TDateTime lastChange, TDateTime now);

// The moment that intervals are counted from. A last change in the future (the clock was set back)
// would stop the schedule until then: it is counted from now.
TDateTime LastChangeBefore(TDateTime lastChange, TDateTime now);

// For the user: "The wallpaper changes after 2 Weeks, on Monday at 12:00".
std::string DescribeSchedule(const TScheduleSettings& schedule);
// "Last Change: dd/mm/yyyy hh:mm".
std::string LastChangeText(TDateTime lastChange);

} // namespace murala
