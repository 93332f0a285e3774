#include "uDateNames.h"
#include "uWideText.h"

namespace murala
{

namespace
{

// The system's text of this number; empty when it has none.
std::string Known(const std::wstring& language, LCTYPE what)
{
    const wchar_t* name = language.empty() ? LOCALE_NAME_USER_DEFAULT : language.c_str();
    wchar_t text[256];
    const int length = GetLocaleInfoEx(name, what, text, std::size(text));
    return length > 1 ? NarrowText({text, static_cast<std::size_t>(length - 1)}) : std::string();
}

void Take(const std::wstring& language, LCTYPE what, std::string& text)
{
    if (std::string known = Known(language, what); !known.empty())
        text = std::move(known);
}

// The names stand under consecutive numbers.
template<class TNames>
void TakeAll(const std::wstring& language, LCTYPE first, TNames& names)
{
    for (std::string& name : names)
        Take(language, first++, name);
}

// Windows writes "tt" in a time where our formats have "ampm".
void TakeTime(const std::wstring& language, LCTYPE what, std::string& format)
{
    Take(language, what, format);
    if (const std::size_t place = format.find("tt"); place != std::string::npos)
        format.replace(place, 2, "ampm");
}

} // namespace

TDateNames LanguageDateNames(const std::string& language)
{
    const std::wstring wide = WideText(language);
    TDateNames names = EnglishDateNames();
    TakeAll(wide, LOCALE_SMONTHNAME1, names.Months);
    TakeAll(wide, LOCALE_SABBREVMONTHNAME1, names.ShortMonths);
    TakeAll(wide, LOCALE_SDAYNAME1, names.Days);
    TakeAll(wide, LOCALE_SABBREVDAYNAME1, names.ShortDays);
    Take(wide, LOCALE_SDATE, names.DateSeparator);
    Take(wide, LOCALE_STIME, names.TimeSeparator);
    Take(wide, LOCALE_S1159, names.Morning);
    Take(wide, LOCALE_S2359, names.Afternoon);
    Take(wide, LOCALE_SSHORTDATE, names.ShortDate);
    Take(wide, LOCALE_SLONGDATE, names.LongDate);
    TakeTime(wide, LOCALE_SSHORTTIME, names.ShortTime);
    TakeTime(wide, LOCALE_STIMEFORMAT, names.LongTime);
    return names;
}

} // namespace murala
