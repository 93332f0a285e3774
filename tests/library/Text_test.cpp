#include "uText.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Text, ParsesOnlyWholeIntegers)
{
    EXPECT_EQ(ParseInteger("-12"), -12);
    EXPECT_EQ(ParseInteger("+7"), 7);
    EXPECT_EQ(ParseInteger(" 7"), 7);
    for (const char* bad : {"", " ", "1x", "1 ", "0x10", "+-1", "2147483648", "1.5"})
        EXPECT_EQ(ParseInteger(bad), std::nullopt) << bad;
}

TEST(Text, CutsBetweenCharacters)
{
    EXPECT_EQ(FirstCharacters("\xC3\xBC\xE2\x82\xAC!", 2), "\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(FirstCharacters("ab", 5), "ab");
}

TEST(Text, ReplacesWithoutLookingAtInsertedText)
{
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
}

TEST(Text, FillsFormats)
{
    EXPECT_EQ(FormatText("%s - %d%% (%dx%d)", {"a%s", "5", "3", "4"}), "a%s - 5% (3x4)");
}

TEST(Text, SplitsAtEveryKindOfLineEnd)
{
    EXPECT_EQ(SplitLines("a\r\nb\nc\r\rd\n"),
              (std::vector<std::string_view>{"a", "b", "c", "", "d"}));
}
