#include "uFont.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Font, IsSevenKeysBehindAPrefix)
{
    const TMuFont font{" 'Odd' Sans ", -3, true, false, true, false, 0xFF000008};
    TIniFile file;
    WriteFont(file, "Options", "Day", font);
    EXPECT_EQ(file.ToText(), "[Options]\r\nDayFontName=\" 'Odd' Sans \"\r\nDayFontSize=-3\r\n"
                             "DayFontStyleBold=1\r\nDayFontStyleItalic=0\r\n"
                             "DayFontStyleUnderline=1\r\nDayFontStyleStrikeout=0\r\n"
                             "DayFontColor=-16777208\r\n");
    EXPECT_EQ(ReadFont(file, "options", "Day", {}), font);
}

TEST(Font, WhatCannotBeReadComesFromTheDefault)
{
    const TMuFont otherwise{"Arial", 12, true, true, false, false, 255};
    const TIniFile file = TIniFile::FromText(
        "[Options]\nTitleFontName=Times\nTitleFontSize=big\nTitleFontStyleBold=0\nFontColor=1\n");
    const TMuFont font{"Times", 12, false, true, false, false, 255};
    EXPECT_EQ(ReadFont(file, "Options", "Title", otherwise), font);
    EXPECT_EQ(ReadFont(file, "Options", "Day", otherwise), otherwise);
}
