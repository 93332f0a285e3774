#include "uTitle.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Title, IsMadeByTheChainOfRules)
{
    const struct {
        const char *FileName, *Title;
    } cases[] = {
        {R"(C:\Pictures\deep_blue-sea.jpg)", "Deep blue-sea"},
        {"/home/me/SunsetBeach_1024x768.jpg", "Sunset Beach"},
        {"/home/me/1024X768.jpg", "1024 X768"}, // the pair is spelt with a small x
        {"/home/me/JPEG.bmp", "J P E G"},
        {"/home/me/My_House.bmp", "My  House"}, // a blank more before a capital that has one
        {"/home/me/Lake (800x600)().jpg", "Lake"},
        {"/home/me/a%20b.jpg", "A b"},
        {"/home/me/no extension", "No extension"},
        {"/home/me/a.b.c", "A.b"},
        {"/home/me/.jpg", ""},
        {"/home/me/\xC3\xA4pfel.jpg", "\xC3\xA4pfel"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MakeTitle(c.FileName, {}), c.Title) << c.FileName;
}

TEST(Title, IsCutBeforeItIsTrimmed)
{
    const struct {
        const char* Name;
        int Limit;
        const char* Title;
    } cases[] = {
        {"Sea", 3, "Se"}, // " Sea" cut to " Se"
        {"ab_cd", 3, "Ab"}, {"x\xE2\x82\xAC\xC3\xBC", 3, "X\xE2\x82\xAC"},
        {"sea", 0, ""},     {"sea", -5, ""},
    };
    for (const auto& c : cases) {
        TTitleRules rules;
        rules.MaxTitleLength = c.Limit;
        EXPECT_EQ(MakeTitle(c.Name, rules), c.Title) << c.Name << ' ' << c.Limit;
    }
    EXPECT_EQ(MakeTitle(std::string(60, '9'), {}).size(), 40U);
}

TEST(Title, FollowsItsRules)
{
    TTitleRules plain{false, false, 40, {}};
    EXPECT_EQ(MakeTitle("deep_Blue.jpg", plain), "deep_Blue");
    // Later pairs see what earlier ones made; inserted text is not replaced by its own pair.
    plain.ConvertList = {{"a", "aa"}, {"aab", "c"}, {"", "never"}};
    EXPECT_EQ(MakeTitle("ab-a.jpg", plain), "c-aa");
    // Capitals that a replacement brings are spaced out, too; the first letter was chosen before.
    TTitleRules rules;
    rules.ConvertList = {{"s", "T"}};
    EXPECT_EQ(MakeTitle("sos.jpg", rules), "So T");
}
