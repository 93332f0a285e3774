#include "uListLine.h"

#include "uWallpaper.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

const std::string SeaLine = R"_("C:\Pictures\Sea.jpg","Sea","Stretched","0","3","(None)",)_"
                            R"_("255","255","255","255","255","255","0","0 0 0","C:\PICTURES\")_";

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
    std::string line = SeaLine;
    return line.replace(start + 1, SeaLine.find_first_of('"', start + 1) - start - 1, text);
}

} // namespace

TEST(ListLine, WritesTheStoredForm)
{
    TMuWallpaper item;
    item.FileName = R"(C:\Pictures\Sea.jpg)";
    item.Title = "Sea";
    item.DisplayMode = dmStretched;
    item.ThumbnailNumber = 3;
    item.Category = R"(C:\PICTURES\)";
    EXPECT_EQ(item.SaveToLine(), SeaLine);
    item.GammaStartRed = 1, item.GammaStartGreen = 2, item.GammaStartBlue = 3;
    item.GammaEndRed = -4, item.GammaEndGreen = -5, item.GammaEndBlue = -256;
    item.GammaStyle = gsVertical;
    item.DesktopColor = 0x030201;
    item.TransparentIcons = true;
    item.DisplayMode = dmFitVertically;
    item.Effect = "Waves";
    item.Title = "a \"b\", c";
    const std::string line =
        R"("C:\Pictures\Sea.jpg","a ""b"", c","Fit Vertically","1","3","Waves","1","2","3","-4","-5","-256","3","1 2 3","C:\PICTURES\")";
    EXPECT_EQ(item.SaveToLine(), line);
    EXPECT_EQ(ItemOf(line).SaveToLine(), line);
}

TEST(ListLine, ReadsFieldsWithAndWithoutQuotes)
{
    EXPECT_EQ(
        ItemOf(R"(/p/a"b.jpg,,Mirror Tiled,1,7,,1,2,3,,x,4,,10 20 30)").SaveToLine(),
        R"("/p/a""b.jpg","","Mirror Tiled","1","7","","1","2","3","255","255","4","0","10 20 30","/p/")");
    // Whatever stands behind a closing quote: one character is skipped.
    EXPECT_EQ(ItemOf(R"("/a";"b"_Mirror Tiled,1,7,,1,2,3,,,,,0 0 0)").DisplayMode, dmMirrorTiled);
    EXPECT_EQ(ItemOf(SeaLine.substr(0, SeaLine.size() - 1)).Category, R"(C:\PICTURES\)");
}

TEST(ListLine, TakesHarmlessFaults)
{
    EXPECT_EQ(ItemOf(WithField(3, "tiled")).DisplayMode, dmCentered);
    EXPECT_FALSE(ItemOf(WithField(4, "2")).TransparentIcons);
    EXPECT_EQ(ItemOf(WithField(7, "99999")).GammaStartRed, 255);
    EXPECT_EQ(ItemOf(WithField(10, "-99999")).GammaEndRed, -256);
    EXPECT_EQ(ItemOf(WithField(13, "4")).GammaStyle, gsNone);
    EXPECT_EQ(ItemOf(WithField(13, "257")).GammaStyle, gsNone);
    EXPECT_EQ(ItemOf(WithField(14, "255 128 1 9")).DesktopColor, 0x0180FFU);
    EXPECT_EQ(ItemOf(WithField(15, "")).Category, R"(C:\Pictures\)");
}

TEST(ListLine, NamesTheFieldThatIsWrong)
{
    const struct {
        int Number;
        const char *Text, *Name;
    } cases[] = {
        {4, "yes", "TransparentIcons"},
        {5, "", "ThumbnailNumber"},
        {7, "1.5", "GammaStartRed"},
        {8, "x", "GammaStartGreen"},
        {9, "3000000000", "GammaStartBlue"},
        {14, "0 0", "DesktopColor"},
        {14, "0  0 0", "DesktopColor"},
        {14, "a 0 0", "DesktopColor"},
        {14, "", "DesktopColor"},
    };
    for (const auto& c : cases)
        try {
            ItemOf(WithField(c.Number, c.Text));
            ADD_FAILURE() << c.Name << ' ' << c.Text;
        } catch (const EConvertError& error) {
            const std::string expected =
                "field " + std::to_string(c.Number) + " (" + c.Name + "): \"" + c.Text + '"';
            EXPECT_EQ(std::string(error.what()).substr(0, expected.size()), expected);
        }
    EXPECT_THROW(ItemOf(""), EConvertError);
}

TEST(ListLine, LinesEndOutsideOfQuotedFields)
{
    const struct {
        std::string_view Text, First, Rest;
    } cases[] = {
        {"\"a\",\"b\"\r\nc", "\"a\",\"b\"", "c"},
        {"\"a\nb\",\"\"\"\r\n\"\nc", "\"a\nb\",\"\"\"\r\n\"", "c"},
        {"a\"b,c\"\rd\"", "a\"b,c\"", "d\""},
        {"\r\nx", "", "x"},
        {"\"a\",\"", "\"a\",\"", ""},
        // Quotes that nobody closed end with their line.
        {"\"a\n\"b\",\"c\"\n", "\"a", "\"b\",\"c\"\n"},
        {"\"a\",\"b\nc,d\n", "\"a\",\"b", "c,d\n"},
    };
    for (const auto& c : cases) {
        std::string_view rest = c.Text;
        EXPECT_EQ(TakeListLine(rest), c.First);
        EXPECT_EQ(rest, c.Rest) << c.Text;
    }
}
