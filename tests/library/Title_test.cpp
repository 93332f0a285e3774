#include "uText.h"
#include "uTitle.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Title, IsMadeByTheChainOfRules)
{
    // Pairs are spelt with a small x, every capital gets a blank, and " Sea" is cut, then trimmed.
    const struct {
        const char *FileName, *Title;
        int Limit;
    } cases[] = {{"/SunBeach_1024x768.jpg", "Sun Beach", 40},   {"/p/a%20b", "A b", 40},
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
