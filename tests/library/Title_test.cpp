#include "uText.h"
#include "uTitle.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Title, IsMadeByTheChainOfRules)
{
    // Pairs are spelt with a small x, every capital gets a blank, and " Sea" is cut, then trimmed.
    using TCase = std::tuple<const char*, const char*, int>;
    const TCase cases[] = {{"/SunBeach_1024x768.jpg", "Sun Beach", 40},   {"/p/a%20b", "A b", 40},
                           {"/pictures/1024X768.jpg", "1024 X768", 40},   {"/p/a.b.c", "A.b", 40},
                           {"/pictures/My_House.bmp", "My  House", 40},   {"/.jpg", "", 40},
                           {"/p/Lake (800x600)().jpg", "Lake", 40},       {"Sea", "Se", 3},
                           {"\xC3\xA4pfel", "\xC3\xA4pfel", 40},          {"ab_cd", "Ab", 3},
                           {"x\xE2\x82\xAC\xC3\xBC", "X\xE2\x82\xAC", 3}, {"sea", "", -5}};
    for (const auto& [fileName, title, limit] : cases)
        EXPECT_EQ(MakeTitle(fileName, {.MaxTitleLength = limit}), title) << fileName;
    EXPECT_EQ(MakeTitle(R"(C:\p\deep_blue-sea.jpg)", {}), "Deep blue-sea");
    // Later pairs see what earlier ones made; inserted text is not replaced by its own pair.
    const TTitleRules plain{false, false, 40, {{"a", "aa"}, {"aab", "c"}, {"", "never"}}};
    EXPECT_EQ(MakeTitle("ab-a_Sea.jpg", plain), "c-aa_Seaa");
    // Capitals that a replacement brings are spaced out, too; the first letter was chosen before.
    EXPECT_EQ(MakeTitle("sos.jpg", {true, true, 40, {{"s", "T"}}}), "So T");
}

TEST(Text, BytesThatAreNotUtf8AreShownAsWindows1252)
{
    const struct {
        const char* Bytes;
        const char* Shown;
    } rows[] = {
        {"plain", "plain"},
        {"Gr\xFCn \x80", "Gr\xC3\xBCn \xE2\x82\xAC"},
        {"Gr\xC3\xBCn", "Gr\xC3\xBCn"},
        {"\xC3", "\xC3\x83"},                             // cut off
        {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                 // overlong
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"}, // half a pair
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DisplayText(row.Bytes), row.Shown);
}
