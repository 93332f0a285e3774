#include "uText.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Text, IsShownWithBytesThatAreNoCharactersTakenAsWindows1252)
{
    const struct {
        const char *Bytes, *Shown;
    } cases[] = {
        {"B\xE4r \x80", "B\xC3\xA4r \xE2\x82\xAC"},
        {"\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x8C\x8A", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x8C\x8A"},
        {"\xC3\xA4\xE4", "\xC3\xA4\xC3\xA4"},
        {"\xC3", "\xC3\x83"},                                             // cut off
        {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                                 // too long
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},                 // a surrogate
        {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"}, // behind the last
        {"\xE2\x82z", "\xC3\xA2\xE2\x80\x9Az"},
        {"\x9F\xFF", "\xC5\xB8\xC3\xBF"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DisplayText(c.Bytes), c.Shown);
}

TEST(Text, OfTwoBytesACharacterBecomesUtf8)
{
    const struct {
        std::string_view Content, Text;
    } cases[] = {
        {{"\xFF\xFE"
          "a\0\xE4\0\xAC\x20\x3C\xD8\x0A\xDF",
          12},
         "\xEF\xBB\xBF"
         "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x8C\x8A"},
        {{"\xFE\xFF\0a\0\n", 6},
         "\xEF\xBB\xBF"
         "a\n"},
        // Halves of characters.
        {{"\xFE\xFF\xD8\x3C\0b", 6},
         "\xEF\xBB\xBF\xEF\xBF\xBD"
         "b"},
        {{"\xFF\xFE\x0A\xDF", 4}, "\xEF\xBB\xBF\xEF\xBF\xBD"},
        {{"\xFF\xFE"
          "ab\x3C",
          5},
         "\xEF\xBB\xBF\xE6\x89\xA1\xEF\xBF\xBD"},
        {"plain", "plain"},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBF"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DecodeText(std::string(c.Content)), c.Text);
}
