#include "uDateNames.h"
#include "uGLib.h"

#include <langinfo.h>

#include <algorithm>
#include <clocale>
#include <memory>
#include <type_traits>

namespace murala
{

namespace
{

struct TLocaleFree {
    void operator()(locale_t locale) const noexcept { freelocale(locale); }
};
using TLocaleOwner = std::unique_ptr<std::remove_pointer_t<locale_t>, TLocaleFree>;

// Month names as they stand alone: some languages change them behind a day.
constexpr nl_item FirstMonth = __ALTMON_1, FirstShortMonth = _NL_ABALTMON_1;
constexpr nl_item FirstDay = DAY_2, FirstShortDay = ABDAY_2; // Monday; Sunday is the first
constexpr std::string_view Separators = "./-";

class TLanguage
{
public:
    explicit TLanguage(locale_t locale) : m_locale(locale) {}

    // In UTF-8, whatever the language's own encoding; empty when it cannot be had.
    std::string Text(nl_item item) const
    {
        const std::string text = nl_langinfo_l(item, m_locale);
        const std::string encoding = nl_langinfo_l(_NL_TIME_CODESET, m_locale);
        return encoding == "UTF-8" ? text : Converted(text, encoding);
    }

    void Take(nl_item item, std::string& text) const
    {
        if (std::string known = Text(item); !known.empty())
            text = std::move(known);
    }

    // For items that follow each other.
    template<class TNames>
    void TakeAll(nl_item first, TNames& names) const
    {
        for (std::string& name : names)
            Take(first++, name);
    }

private:
    static std::string Converted(const std::string& text, const std::string& encoding)
    {
        const TGText converted(g_convert(text.data(), static_cast<gssize>(text.size()), "UTF-8",
                                         encoding.c_str(), nullptr, nullptr, nullptr));
        return converted ? converted.get() : "";
    }

    locale_t m_locale;
};

struct TSpecifier {
    char Letter;
    std::string_view Token;
};
constexpr TSpecifier Specifiers[] = {
    {'d', "dd"},         {'e', "d"},        {'m', "mm"},
    {'y', "yy"},         {'Y', "yyyy"},     {'b', "mmm"},
    {'h', "mmm"},        {'B', "mmmm"},     {'a', "ddd"},
    {'A', "dddd"},       {'H', "hh"},       {'I', "hh"},
    {'k', "h"},          {'l', "h"},        {'M', "nn"},
    {'S', "ss"},         {'p', "ampm"},     {'P', "ampm"},
    {'T', "hh:nn:ss"},   {'R', "hh:nn"},    {'r', "hh:nn:ss ampm"},
    {'F', "yyyy-mm-dd"}, {'D', "mm/dd/yy"},
};

// The system's format written as one of ours; literal text is quoted.
std::string OurFormat(const std::string& system)
{
    std::string format;
    for (std::size_t i = 0; i < system.size(); ++i) {
        if (system[i] != '%') {
            format += '"';
            for (; i < system.size() && system[i] != '%'; ++i)
                format += system[i];
            format += '"';
        }
        do // flags such as in "%-d" and "%Ey"
            ++i;
        while (i < system.size() &&
               std::string_view("-_0^#EO").find(system[i]) != std::string::npos);
        const auto* known = std::ranges::find_if(Specifiers, [&](const TSpecifier& each) {
            return i < system.size() && each.Letter == system[i];
        });
        if (known != std::end(Specifiers))
            format += known->Token;
    }
    return format;
}

void TakeFormat(const TLanguage& language, nl_item item, std::string& format)
{
    std::string system;
    language.Take(item, system);
    if (std::string ours = OurFormat(system); !ours.empty())
        format = std::move(ours);
}

} // namespace

TDateNames LanguageDateNames(const std::string& language)
{
    TDateNames names = EnglishDateNames();
    // Only this category: the language of another one may not be installed.
    const TLocaleOwner locale(newlocale(LC_TIME_MASK, language.c_str(), nullptr));
    if (!locale)
        return names;
    const TLanguage known(locale.get());
    known.TakeAll(FirstMonth, names.Months);
    known.TakeAll(FirstShortMonth, names.ShortMonths);
    // From Monday to Saturday; Sunday stands in front of them.
    known.TakeAll(FirstDay, names.Days);
    known.TakeAll(FirstShortDay, names.ShortDays);
    known.Take(DAY_1, names.Days.back());
    known.Take(ABDAY_1, names.ShortDays.back());
    known.Take(AM_STR, names.Morning);
    known.Take(PM_STR, names.Afternoon);
    TakeFormat(known, D_FMT, names.ShortDate);
    TakeFormat(known, D_FMT, names.LongDate);
    TakeFormat(known, T_FMT, names.LongTime);
    const std::string date = known.Text(D_FMT);
    if (const std::size_t place = date.find_first_of(Separators); place != std::string::npos)
        names.DateSeparator = date[place];
    return names;
}

} // namespace murala
