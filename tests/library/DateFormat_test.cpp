#include "uDateFormat.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(DateFormat, EveryToken)
{
    TDateNames names = EnglishDateNames();
    names.DateSeparator = ".";
    names.ShortDate = "d/m/yy";
    names.LongDate = "dddd', the 'd";
    names.LongTime = "hh:nn:ss";
    const TDateTime morning = *EncodeDateTime({2026, 3, 7, 9, 5, 2}); // a Saturday
    const TDateTime midnight = *EncodeDateTime({2003, 12, 28});       // a Sunday
    const TDateTime evening = *EncodeDateTime({2026, 3, 7, 21, 5, 2});
    struct {
        const char* Format;
        TDateTime Date;
        const char* Text;
    } const cases[] = {
        {"mmmm yyyy", morning, "March 2026"},
        {"mmm yy", morning, "Mar 26"},
        {"mm/yyyy", morning, "03.2026"},
        {"MM/YY", morning, "03.26"},
        {"d/m/y", morning, "7.3.26"},
        {"dd/mm/yyy", morning, "07.03.2026"},
        {"ddd mmmm yyyy", morning, "Sat March 2026"},
        {"Dddd", midnight, "Sunday"},
        {"hh:mm:ss", morning, "09:05:02"},
        {"h:n:s.zzz", evening, "21:5:2.000"},
        {"h:n am/pm", evening, "9:5 pm"},
        {"hh AMPM", evening, "09 PM"},
        {"h a/p", midnight, "12 a"},
        {"xxaaAM/PM", evening, "xxaapm"},
        {"h' am/pm'", evening, "21 am/pm"},
        {"mm hh 'm' mm mm/hh", morning, "03 09 m 05 03.09"},
        {"ddddd|dddddd", morning, "7.3.26|Saturday, the 7"},
        {"t|tt", evening, "21:05|21:05:02"},
        {"c", morning, "7.3.26 09:05:02"},
        {"c", midnight, "28.12.03"},
        {"\"dd 'mm'\" yy 'open dd", morning, "dd 'mm' 26 open dd"},
        {"'' \"\"(x) \xC3\xA4", morning, " (x) \xC3\xA4"},
        {"", morning, ""},
        {"'", morning, ""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(FormatDate(each.Format, each.Date, names), each.Text) << each.Format;
}

TEST(DateFormat, AMillionLettersTakeAMoment)
{
    const std::string letters(1'000'000, 'w'); // minutes, were each looked at with all behind it
    EXPECT_EQ(FormatDate(letters, 46000, EnglishDateNames()), letters);
}

TEST(DateFormat, ALanguageThatNamesItsOwnFormatEnds)
{
    TDateNames names = EnglishDateNames();
    names.ShortDate = "c ddddd d";
    EXPECT_EQ(FormatDate("ddddd!", 46000, names), "  " + FormatDate("d!", 46000, names));
}
