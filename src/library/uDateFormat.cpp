#include "uDateFormat.h"

#include "uText.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace murala
{

namespace
{

constexpr std::string_view HalfDayTokens[] = {"am/pm", "ampm", "a/p"};

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string Number(int value, int digits)
{
    char text[32];
    std::snprintf(text, sizeof text, "%0*d", digits, value);
    return text;
}

// The token for the half of the day that the text begins with; empty when there is none.
std::string_view HalfDayToken(std::string_view text)
{
    for (const std::string_view token : HalfDayTokens)
        if (SameTextAscii(text.substr(0, token.size()), token))
            return token;
    return {};
}

// The quoted text at the front, with its quotes; an open quote goes to the end.
std::string_view QuotedPart(std::string_view text)
{
    const std::size_t end = text.find(text.front(), 1);
    return text.substr(0, end == std::string_view::npos ? end : end + 1);
}

bool HasHalfDay(std::string_view format)
{
    while (!format.empty()) {
        if (!HalfDayToken(format).empty())
            return true;
        const bool isQuote = format.front() == '"' || format.front() == '\'';
        format.remove_prefix(isQuote ? QuotedPart(format).size() : 1);
    }
    return false;
}

class TDateFormatter
{
public:
    TDateFormatter(TDateTime date, const TDateNames& names, bool isNested = false)
        : m_date(date), m_parts(DecodeDateTime(date)), m_names(names), m_isNested(isNested)
    {
    }

    std::string Format(std::string_view format)
    {
        m_hasHalfDay = HasHalfDay(format);
        while (!format.empty())
            format.remove_prefix(Take(format));
        return std::move(m_text);
    }

private:
    // Appends what the token at the front stands for, and gives the token's length.
    std::size_t Take(std::string_view format)
    {
        const char first = Lower(format.front());
        if (first == '"' || first == '\'')
            return TakeQuoted(QuotedPart(format));
        if (const auto token = HalfDayToken(format); !token.empty())
            return TakeHalfDay(token);
        const auto end = std::ranges::find_if(format, [=](char c) { return Lower(c) != first; });
        const auto length = static_cast<std::size_t>(end - format.begin());
        if (const auto text = TokenText(first, static_cast<int>(length))) {
            m_text += *text;
            return length;
        }
        // All of them but the last one, with which a token for the half of the day may begin:
        // looking at each again would take the square of their number.
        const std::size_t plain = std::max<std::size_t>(length - 1, 1);
        m_text += format.substr(0, plain);
        return plain;
    }

    std::size_t TakeQuoted(std::string_view quoted)
    {
        const std::string_view inside = quoted.substr(1);
        const bool isClosed = inside.ends_with(quoted.front());
        m_text += inside.substr(0, inside.size() - (isClosed ? 1 : 0));
        return quoted.size();
    }

    std::size_t TakeHalfDay(std::string_view token)
    {
        const bool isMorning = m_parts.Hour < 12;
        if (token == "ampm")
            m_text += isMorning ? m_names.Morning : m_names.Afternoon;
        else if (token == "a/p")
            m_text += isMorning ? "a" : "p";
        else
            m_text += isMorning ? "am" : "pm";
        return token.size();
    }

    std::optional<std::string> TokenText(char letter, int length)
    {
        const bool isMinute = letter == 'm' && m_lastLetter == 'h';
        if (letter >= 'a' && letter <= 'z')
            m_lastLetter = letter;
        switch (letter) {
        case 'd':
            return Day(length);
        case 'm':
            return isMinute ? Number(m_parts.Minute, std::min(length, 2)) : Month(length);
        case 'y':
            return length <= 2 ? Number(m_parts.Year % 100, 2) : Number(m_parts.Year, 4);
        case 'h':
            return Number(Hour(), std::min(length, 2));
        case 'n':
            return Number(m_parts.Minute, std::min(length, 2));
        case 's':
            return Number(m_parts.Second, std::min(length, 2));
        case 'z':
            return Number(0, std::min(length, 3)); // dates are of whole seconds
        case 't':
            return Nested(length == 1 ? m_names.ShortTime : m_names.LongTime);
        case 'c':
            return Nested(TimeOf(m_date) == 0 ? m_names.ShortDate
                                              : m_names.ShortDate + " " + m_names.LongTime);
        case '/':
            return Repeated(m_names.DateSeparator, length);
        case ':':
            return Repeated(m_names.TimeSeparator, length);
        default:
            return std::nullopt;
        }
    }

    std::string Day(int length)
    {
        const auto weekday = static_cast<std::size_t>(WeekdayOf(m_date));
        switch (length) {
        case 1:
        case 2:
            return Number(m_parts.Day, length);
        case 3:
            return m_names.ShortDays[weekday];
        case 4:
            return m_names.Days[weekday];
        default:
            return Nested(length == 5 ? m_names.ShortDate : m_names.LongDate);
        }
    }

    std::string Month(int length) const
    {
        const auto month = static_cast<std::size_t>(m_parts.Month - 1);
        if (length <= 2)
            return Number(m_parts.Month, length);
        return length == 3 ? m_names.ShortMonths[month] : m_names.Months[month];
    }

    int Hour() const { return m_hasHalfDay ? (m_parts.Hour + 11) % 12 + 1 : m_parts.Hour; }

    // A format within the format; a language's format has none within it.
    std::string Nested(const std::string& format) const
    {
        return m_isNested ? std::string() : TDateFormatter(m_date, m_names, true).Format(format);
    }

    static std::string Repeated(const std::string& text, int count)
    {
        std::string result;
        for (int i = 0; i < count; ++i)
            result += text;
        return result;
    }

    TDateTime m_date;
    TDateParts m_parts;
    const TDateNames& m_names;
    bool m_isNested;
    bool m_hasHalfDay = false;
    char m_lastLetter = 0;
    std::string m_text;
};

} // namespace

TDateNames EnglishDateNames()
{
    TDateNames names;
    names.Months = {"January", "February", "March",     "April",   "May",      "June",
                    "July",    "August",   "September", "October", "November", "December"};
    names.Days = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
    const auto shorten = [](const std::string& name) { return name.substr(0, 3); };
    std::ranges::transform(names.Months, names.ShortMonths.begin(), shorten);
    std::ranges::transform(names.Days, names.ShortDays.begin(), shorten);
    return names;
}

std::string FormatDate(std::string_view format, TDateTime date, const TDateNames& names)
{
    return TDateFormatter(date, names).Format(format);
}

} // namespace murala
