#include "uDateTime.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(DateTime, CountsDaysFromItsZero)
{
    const std::tuple<TDateParts, TDateTime, int> cases[] = {
        {{1899, 12, 30}, 0.0, 5},      {{1900, 1, 1, 12}, 2.5, 0}, {{1899, 12, 29, 6}, -0.75, 4},
        {{1899, 12, 23, 12}, -6.5, 5}, {{1970, 1, 1}, 25569.0, 3}, {{2024, 2, 29}, 45351.0, 3}};
    for (const auto& [parts, days, weekday] : cases) {
        EXPECT_EQ(EncodeDateTime(parts), days);
        EXPECT_EQ(WeekdayOf(days), weekday) << days;
    }
    EXPECT_EQ(TimeOf(-0.75), 0.25);
    const TDateParts bad[] = {{2023, 2, 29},    {1900, 2, 29},       {2024, 4, 31},  {2024, 13, 1},
                              {2024, 0, 1},     {2024, 1, 0},        {2024, 257, 1}, {0, 1, 1},
                              {2024, 1, 1, 24}, {2024, 1, 1, 0, 60}, {10000, 1, 1}};
    for (const TDateParts& parts : bad)
        EXPECT_FALSE(EncodeDateTime(parts)) << parts.Year << '-' << parts.Month << '-' << parts.Day;
}

TEST(DateTime, RoundsToSecondsAcrossMidnight)
{
    EXPECT_EQ(DateTimeToText(2.0 - 0.4 / SecondsPerDay), "1900-01-01 00:00:00");
    EXPECT_EQ(DateTimeToText(2.0 - 0.6 / SecondsPerDay), "1899-12-31 23:59:59");
    EXPECT_EQ(DateTimeToText(1e300), "9999-12-31 23:59:59");
    EXPECT_EQ(DateTimeToText(-1e300), "0001-01-01 00:00:00");
    EXPECT_EQ(DateTimeToDisplayText(*EncodeDateTime({2026, 3, 7, 18, 5, 59})), "07/03/2026 18:05");
    for (int second = 0; second < 86400; ++second) {
        const TDateTime time = 46088 + second / SecondsPerDay;
        ASSERT_EQ(TextToDateTime(DateTimeToText(time)), time) << second;
    }
}

TEST(DateTime, ReadsItsFormsAndRefusesOthers)
{
    for (const char* text : {"2026-03-07 18:05:00", " 2026-3-7  18:05 ", "2026-03-07 06:05pm"})
        EXPECT_EQ(TextToDateTime(text), EncodeDateTime({2026, 3, 7, 18, 5})) << text;
    EXPECT_EQ(TextToDateTime("2026-03-07"), EncodeDateTime({2026, 3, 7}));
    EXPECT_EQ(TextToTime("12:00:00 PM"), 0.5);
    EXPECT_EQ(TextToTime("12:00am"), 0.0);
    for (const char* text : {"", "2026", "2026-03", "2026-02-30", "2026-03-07 25:00", "12026-03-07",
                             "2026-03-07 18:05:00x", "2026-03-07x", "-1-03-07"})
        EXPECT_FALSE(TextToDateTime(text)) << text;
    for (const char* text : {"", "12", "12:", "12:00:", "13:00pm", "0:30am", "24:00", "12:00 p"})
        EXPECT_FALSE(TextToTime(text)) << text;
}
