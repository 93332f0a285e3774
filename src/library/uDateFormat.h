// Dates as text, by a format of the user's choice and in his language.
#pragma once

#include "uDateTime.h"

#include <array>
#include <string>
#include <string_view>

namespace murala
{

// What a language puts into dates. The formats are those of FormatDate, without "c", "t" and the
// like.
struct TDateNames {
    std::array<std::string, 12> Months, ShortMonths;
    std::array<std::string, 7> Days, ShortDays; // from Monday on
    std::string DateSeparator = "/", TimeSeparator = ":";
    std::string Morning = "AM", Afternoon = "PM";
    std::string ShortDate = "mm/dd/yyyy", LongDate = "dddd, mmmm d, yyyy";
    std::string ShortTime = "hh:nn", LongTime = "hh:nn:ss";
};

TDateNames EnglishDateNames();

// Tokens, in any letter case:
//   d dd          day          ddd dddd      short, full name of the weekday
//   m mm          month        mmm mmmm      short, full name; m and mm after hours are minutes
//   yy yyyy       year         (y is yy, yyy is yyyy)
//   h hh n nn s ss z zzz       hours (of 12 where am/pm, a/p or ampm follows somewhere), minutes,
//                              seconds, milliseconds
//   ddddd dddddd t tt c        short and long date, short and long time; date, and time if not 0
//   / :           the language's separators
//   'x' "x"       x as it is
// Everything else stands for itself.
std::string FormatDate(std::string_view format, TDateTime date, const TDateNames& names);

} // namespace murala
