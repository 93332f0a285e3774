#include "uApply.h"

#include "uDesktopFakes.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TEST(Apply, TileFlagHasTwoModesAndColourIsStoredBeforeItIsShown)
{
    TFakeDesktop desktop;
    for (const int mode : {0, 1, 2, -1})
        WriteTileWallpaper(desktop, mode);
    ApplyDesktopColor(desktop, 0x0A0B0C);
    EXPECT_EQ(desktop.Calls, (std::vector<std::string>{"tile 1", "tile 0", "colour text 12 11 10",
                                                       "colour " + std::to_string(0x0A0B0C)}));
}

TEST(Apply, ColourTextGoesBothWays)
{
    const std::pair<TColor, const char*> cases[] = {
        {255, "255 0 0"}, {16711680, "0 0 255"}, {16777215, "255 255 255"}};
    for (const auto& [color, text] : cases) {
        EXPECT_EQ(ColorToIniText(color), text);
        EXPECT_EQ(IniTextToColor(text), color);
    }
    for (const char* text : {"", "1 2", "1 2 3 4", "1 2 x", "1  2 3"})
        EXPECT_THROW(IniTextToColor(text), EConvertError) << text;
}

} // namespace
