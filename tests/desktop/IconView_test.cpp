#include "uIconView.h"

#include "uDesktopFakes.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TEST(IconView, LabelsThatAreSoAlreadyAreNotPaintedAgain)
{
    TFakeDesktop desktop;
    desktop.Color = 0x112233;
    TFakeIconView icons;
    SetIconsTransparent(icons);
    SetIconsOpaque(icons, desktop);
    icons.HasIcons = true;
    for (int i = 1; i <= 2; i++) {
        SetIconsTransparent(icons);
        EXPECT_EQ(icons.LabelColor, NoColor);
        EXPECT_EQ(icons.Paintings, 1);
    }
    for (int i = 1; i <= 2; i++) {
        SetIconsOpaque(icons, desktop);
        EXPECT_EQ(icons.LabelColor, desktop.Color);
        EXPECT_EQ(icons.Paintings, 2);
    }
}

} // namespace
