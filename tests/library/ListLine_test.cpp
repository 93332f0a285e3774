#include "uListLine.h"

#include "uWallpaper.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

const std::string SeaLine =
    R"("C:\Pictures\Sea.jpg","a ""b"", c","Fit Vertically","1","3","Waves",)"
    R"("1","2","3","-4","-5","-256","3","1 2 3","C:\PICTURES\")";

TMuWallpaper ItemOf(std::string_view line)
{
    TMuWallpaper item;
    item.LoadFromLine(line);
    return item;
}

// The example with another text in one field, from 1.
std::string WithField(int number, const std::string& text)
{
    std::size_t start = 0;
    while (--number > 0)
        start = SeaLine.find("\",\"", start) + 2;
    return SeaLine.substr(0, start + 1) + text + SeaLine.substr(SeaLine.find('"', start + 1));
}

} // namespace

TEST(ListLine, WritesAndReadsTheStoredForm)
{
    TMuWallpaperList list;
    TMuWallpaper& item = list.Add(std::make_unique<TMuWallpaper>(R"(C:\Pictures\Sea.jpg)"));
    list.SetThumbnailNumber(item, 3);
    item.Title = "a \"b\", c";
    item.DisplayMode = dmFitVertically;
    item.TransparentIcons = true;
    item.Effect = "Waves";
    item.SetStartTint({1, 2, 3});
    item.SetEndTint({-4, -5, -256});
    item.GammaStyle = gsVertical;
    item.DesktopColor = 0x030201;
    item.Category = R"(C:\PICTURES\)";
    EXPECT_EQ(item.SaveToLine(), SeaLine);
    EXPECT_EQ(ItemOf(SeaLine).SaveToLine(), SeaLine);
    EXPECT_EQ(ItemOf(SeaLine.substr(0, SeaLine.size() - 1)).SaveToLine(), SeaLine);
    EXPECT_EQ(ItemOf(R"(/p/a"b.jpg,,Mirror Tiled,1,7,,1,2,3,,x,4,,10 20 30)").SaveToLine(),
              R"("/p/a""b.jpg","","Mirror Tiled","1","7","","1","2","3","255","255","4","0",)"
              R"("10 20 30","/p/")");
    // Whatever stands behind a closing quote: one character is skipped.
    EXPECT_EQ(ItemOf(R"("/a";"b"_Mirror Tiled,1,7,,1,2,3,,,,,0 0 0)").DisplayMode, dmMirrorTiled);
}

TEST(ListLine, TakesHarmlessFaultsAndNamesTheFieldOfOthers)
{
    const struct {
        int Number;
        std::string Text, Result; // what is stored instead of it, or else the field's name
    } cases[] = {{4, "20", "0"},
                 {4, "1 ", "TransparentIcons"},
                 {13, "4", "0"},
                 {5, "", "ThumbnailNumber"},
                 {8, " +7", "7"},
                 {7, "+-1", "GammaStartRed"},
                 {13, "257", "0"},
                 {8, "%s", "GammaStartGreen"},
                 {12, "x", "255"},
                 {9, "3000000000", "GammaStartBlue"},
                 {7, "99999", "255"},
                 {8, "256", "255"},
                 {9, "-257", "-256"},
                 {11, "256", "255"},
                 {14, "0 0", "DesktopColor"},
                 {10, "-99999", "-256"},
                 {14, "0  0 0", "DesktopColor"},
                 {3, "tiled", "Centered"},
                 {14, "1 2 3 x", "DesktopColor"}};
    for (const auto& [number, text, result] : cases)
        try {
            EXPECT_EQ(ItemOf(WithField(number, text)).SaveToLine(), WithField(number, result));
        } catch (const EConvertError& error) {
            const auto start = "field " + std::to_string(number) + " (" + result + "): \"" + text;
            EXPECT_EQ(std::string(error.what()).find(start), 0U) << error.what();
        }
    EXPECT_EQ(ItemOf(WithField(15, "")).Category, R"(C:\Pictures\)");
}

TEST(ListLine, LinesEndOutsideOfQuotedFields)
{
    const struct {
        std::string_view Text, First, Behind;
    } cases[] = {{"\"a\",\"b\"\r\nc", "\"a\",\"b\"", "c"},
                 {"\"a\nb\",\"\"\"\r\n\"\nc", "\"a\nb\",\"\"\"\r\n\"", "c"},
                 {"a\"b,c\"\rd\"", "a\"b,c\"", "d\""},
                 {"\r\nx", "", "x"},
                 {"\"a\",\"", "\"a\",\"", ""},
                 // Quotes that nobody closed end with their line.
                 {"\"a\n\"b\",\"c\"\n", "\"a", "\"b\",\"c\"\n"},
                 {"\"a\",\"b\nc,d\n", "\"a\",\"b", "c,d\n"},
                 {"\"a\nb\",\"c\"d\n", "\"a", "b\",\"c\"d\n"}};
    for (const auto& [text, first, behind] : cases) {
        std::string_view rest = text;
        EXPECT_EQ(TakeListLine(rest), first);
        EXPECT_EQ(rest, behind) << text;
    }
}

TEST(ListLine, ATintIsGreyWhenItsThreeValuesAreEqual)
{
    for (const auto& [tint, isGrey] : {std::pair(TTint{7, 7, 7}, true),
                                       {{7, 7, 8}, false},
                                       {{7, 8, 7}, false},
                                       {{8, 7, 7}, false}}) {
        TMuWallpaper start, end;
        start.SetStartTint(tint), end.SetEndTint(tint);
        EXPECT_TRUE(start.StartTintIsGrey() == isGrey && start.EndTintIsGrey());
        EXPECT_TRUE(end.EndTintIsGrey() == isGrey && end.StartTintIsGrey());
    }
}
