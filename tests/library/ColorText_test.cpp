#include "uColorText.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TEST(ColorText, GoesBothWays)
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
