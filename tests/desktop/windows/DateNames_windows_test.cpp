#include "uDateNames.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

std::string Text(const char* format, const char* language)
{
    const TDateTime date = *EncodeDateTime({2026, 3, 8, 15, 4, 5}); // a Sunday
    return FormatDate(format, date, LanguageDateNames(language));
}

} // namespace

TEST(DateNames, AreInTheLanguagesOwnScript)
{
    EXPECT_EQ(Text("dddd mmmm yyyy", "de-DE"), "Sonntag M\xC3\xA4rz 2026");
    EXPECT_EQ(Text("mm/yyyy", "de-DE"), "03.2026");
    EXPECT_EQ(Text("tt", "de-DE"), "15:04:05");
    EXPECT_NE(Text("ddddd", "de-DE").find(".2026"), std::string::npos); // 8.3. or 08.03.
    EXPECT_EQ(Text("dddd ddd mmmm", "ja-JP"),
              "\xE6\x97\xA5\xE6\x9B\x9C\xE6\x97\xA5 \xE6\x97\xA5 3\xE6\x9C\x88");
    EXPECT_EQ(Text("dddd", "ar-EG"), "\xD8\xA7\xD9\x84\xD8\xA3\xD8\xAD\xD8\xAF");
    EXPECT_EQ(Text("ddd tt", "en-US"), "Sun 3:04:05 PM");
    EXPECT_EQ(LanguageDateNames("de-DE").ShortDays.front().substr(0, 2), "Mo"); // or "Mo."
    EXPECT_EQ(Text("dddd", "no-such-language-here"), "Sunday");
}
