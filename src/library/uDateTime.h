// Dates on the date-time scale: days since 30 December 1899, the time of day as the fraction. Local
// time without a zone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace murala
{

using TDateTime = double;

inline constexpr TDateTime HoursPerDay = 24.0;
inline constexpr TDateTime MinutesPerDay = 1440.0;
inline constexpr TDateTime SecondsPerDay = 86400.0;

struct TDateParts {
    int Year, Month, Day; // month 1..12, day 1..31
    int Hour = 0, Minute = 0, Second = 0;
};

// Empty when there is no such date or time.
std::optional<TDateTime> EncodeDateTime(const TDateParts& parts);
// To the nearest second.
TDateParts DecodeDateTime(TDateTime dateTime);

// The whole day and the time of day (0 <= time < 1).
TDateTime DayOf(TDateTime dateTime);
TDateTime TimeOf(TDateTime dateTime);
// 0 Monday .. 6 Sunday.
int WeekdayOf(TDateTime dateTime);

// Stored forms: "2026-03-07 18:05:00" and "18:05:00". They do not depend on the user's locale, so a
// changed locale loses nothing. The readers take a time with "am" or "pm" as well, and a date
// alone.
std::string DateTimeToText(TDateTime dateTime);
std::string TimeToText(TDateTime dateTime);
std::optional<TDateTime> TextToDateTime(std::string_view text);
std::optional<TDateTime> TextToTime(std::string_view text);

// "dd/mm/yyyy hh:mm", 24 hours.
std::string DateTimeToDisplayText(TDateTime dateTime);

} // namespace murala
