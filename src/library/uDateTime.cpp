#include "uDateTime.h"

#include "uText.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace murala
{

namespace
{

constexpr std::chrono::sys_days DayZero{std::chrono::year(1899) / 12 / 30};
constexpr int WeekdayOfDayZero = 5; // a Saturday
constexpr int FirstYear = 1, LastYear = 9999;

// Reads a text from its front, one part after the other.
class TScanner
{
public:
    explicit TScanner(std::string_view text) : m_rest(Trim(text)) {}

    bool AtEnd() const { return m_rest.empty(); }

    // One to four digits.
    bool Number(int& value)
    {
        std::size_t digits = 0;
        for (value = 0; digits < m_rest.size() && m_rest[digits] >= '0' && m_rest[digits] <= '9';
             ++digits) {
            if (digits == 4)
                return false;
            value = value * 10 + (m_rest[digits] - '0');
        }
        m_rest.remove_prefix(digits);
        return digits > 0;
    }

    bool Word(std::string_view word)
    {
        if (!SameTextAscii(m_rest.substr(0, word.size()), word))
            return false;
        m_rest.remove_prefix(word.size());
        return true;
    }

    void SkipBlanks()
    {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(' '), m_rest.size()));
    }

private:
    std::string_view m_rest;
};

bool ReadDate(TScanner& scanner, TDateParts& parts)
{
    return scanner.Number(parts.Year) && scanner.Word("-") && scanner.Number(parts.Month) &&
           scanner.Word("-") && scanner.Number(parts.Day);
}

// 12 am is midnight, 12 pm is noon.
bool ToTwentyFourHours(int& hour, bool afternoon)
{
    if (hour < 1 || hour > 12)
        return false;
    hour = hour % 12 + (afternoon ? 12 : 0);
    return true;
}

bool ReadTime(TScanner& scanner, TDateParts& parts)
{
    if (!scanner.Number(parts.Hour) || !scanner.Word(":") || !scanner.Number(parts.Minute))
        return false;
    if (scanner.Word(":") && !scanner.Number(parts.Second))
        return false;
    scanner.SkipBlanks();
    if (scanner.Word("am"))
        return ToTwentyFourHours(parts.Hour, false);
    if (scanner.Word("pm"))
        return ToTwentyFourHours(parts.Hour, true);
    return true;
}

} // namespace

std::optional<TDateTime> EncodeDateTime(const TDateParts& parts)
{
    using namespace std::chrono;
    if (parts.Year < FirstYear || parts.Year > LastYear || parts.Month < 1 || parts.Month > 12 ||
        parts.Day < 1 || parts.Day > 31)
        return std::nullopt;
    const year_month_day date = year(parts.Year) / parts.Month / parts.Day;
    if (!date.ok() || parts.Hour < 0 || parts.Hour > 23 || parts.Minute < 0 || parts.Minute > 59 ||
        parts.Second < 0 || parts.Second > 59)
        return std::nullopt;
    const int seconds = (parts.Hour * 60 + parts.Minute) * 60 + parts.Second;
    return static_cast<double>((sys_days(date) - DayZero).count()) + seconds / SecondsPerDay;
}

TDateParts DecodeDateTime(TDateTime dateTime)
{
    using namespace std::chrono;
    const sys_seconds first = sys_days(year(FirstYear) / 1 / 1);
    const sys_seconds last = sys_days(year(LastYear) / 12 / 31) + 24h - 1s;
    const double range = SecondsPerDay * 366.0 * LastYear;
    const double wanted = std::clamp(dateTime * SecondsPerDay, -range, range);
    const auto time = std::clamp(DayZero + seconds(std::llround(wanted)), first, last);
    const auto day = floor<days>(time);
    const year_month_day date = day;
    const hh_mm_ss clock(time - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

TDateTime DayOf(TDateTime dateTime)
{
    return std::floor(dateTime);
}

TDateTime TimeOf(TDateTime dateTime)
{
    return dateTime - DayOf(dateTime);
}

int WeekdayOf(TDateTime dateTime)
{
    const int day = static_cast<int>(std::fmod(DayOf(dateTime), 7.0)) + WeekdayOfDayZero;
    return (day + 7) % 7;
}

std::string DateTimeToText(TDateTime dateTime)
{
    const TDateParts parts = DecodeDateTime(dateTime);
    return PrintShort("%04d-%02d-%02d ", parts.Year, parts.Month, parts.Day) + TimeToText(dateTime);
}

std::string TimeToText(TDateTime dateTime)
{
    const TDateParts parts = DecodeDateTime(dateTime);
    return PrintShort("%02d:%02d:%02d", parts.Hour, parts.Minute, parts.Second);
}

std::optional<TDateTime> TextToDateTime(std::string_view text)
{
    TScanner scanner(text);
    TDateParts parts{};
    if (!ReadDate(scanner, parts))
        return std::nullopt;
    scanner.SkipBlanks();
    if (!scanner.AtEnd() && (!ReadTime(scanner, parts) || !scanner.AtEnd()))
        return std::nullopt;
    return EncodeDateTime(parts);
}

std::optional<TDateTime> TextToTime(std::string_view text)
{
    TScanner scanner(text);
    TDateParts parts{1899, 12, 30};
    if (!ReadTime(scanner, parts) || !scanner.AtEnd())
        return std::nullopt;
    return EncodeDateTime(parts);
}

std::string DateTimeToDisplayText(TDateTime dateTime)
{
    const TDateParts parts = DecodeDateTime(dateTime);
    return PrintShort("%02d/%02d/%04d %02d:%02d", parts.Day, parts.Month, parts.Year, parts.Hour,
                      parts.Minute);
}

} // namespace murala
