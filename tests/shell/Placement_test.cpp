#include "uPlacement.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Placement, ATaskBarTakesItsEdge)
{
    constexpr TRect area{0, 0, 1280, 1024};
    EXPECT_EQ(WithoutTaskBar(area, {0, 1004, 1280, 1024}), (TRect{0, 0, 1280, 1004}));
    EXPECT_EQ(WithoutTaskBar(area, {-2, -2, 1282, 30}), (TRect{0, 30, 1280, 1024}));
    EXPECT_EQ(WithoutTaskBar(area, {-2, -2, 60, 1026}), (TRect{60, 0, 1280, 1024}));
    EXPECT_EQ(WithoutTaskBar(area, {1200, 0, 1282, 1024}), (TRect{0, 0, 1200, 1024}));
    EXPECT_EQ(WithoutTaskBar({1280, 0, 2560, 1024}, {0, 1004, 1280, 1024}),
              (TRect{1280, 0, 2560, 1024}));
}

TEST(Placement, AWindowIsBroughtWhollyOntoTodaysScreens)
{
    constexpr TRect main{0, 0, 1280, 984}, second{1280, 0, 3200, 1080};
    const struct {
        TRect Left, Fitted;
        const char* Why;
    } rows[] = {
        {{-7, 100, 500, 700}, {-7, 100, 500, 700}, "an invisible border"},
        {{1000, 100, 1600, 700}, {1000, 100, 1600, 700}, "on two screens"},
        {{-14, -14, 1280, 1024}, {0, 0, 1280, 984}, "over the task bar, its title half cut"},
        {{600, 600, 1200, 1400}, {600, 184, 1200, 984}, "from a taller screen"},
        {{5000, 200, 5600, 700}, {340, 242, 940, 742}, "from a screen that is gone"},
        {{5000, 200, 8000, 3000}, {0, 0, 1280, 984}, "and larger than any"},
        {{1400, -900, 2000, 100}, {1400, 0, 2000, 1000}, "over the second one's top"},
    };
    for (const auto& [left, fitted, why] : rows)
        EXPECT_EQ(FitToScreens(left, {main, second}, 8), fitted) << why;
}
