#include "uCalendarView.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TCalendarSettings Calendar(int width, int height, int x, int y)
{
    TCalendarSettings settings;
    settings.CalendarWidth = width;
    settings.CalendarHeight = height;
    settings.CalendarX = x;
    settings.CalendarY = y;
    return settings;
}

} // namespace

TEST(CalendarView, APictureIsFittedWithAMargin)
{
    const struct {
        TSize Client, Picture, Fitted;
    } cases[] = {
        {{816, 616}, {1600, 1200}, {800, 600}},
        {{816, 600}, {1600, 1200}, {779, 584}}, // too high: 584 x 4/3 = 778.67
        {{1016, 2000}, {100, 50}, {1000, 500}}, // smaller pictures grow
        {{117, 500}, {3, 1}, {101, 34}},        // 33.67
        {{500, 500}, {0, 10}, {0, 10}},
        {{4, 4}, {100, 100}, {1, 1}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(FittedSize(each.Client, each.Picture), each.Fitted)
            << each.Client.Width << ' ' << each.Picture.Width;
}

TEST(CalendarView, TheOutlineIsTheCalendarInTheShownSize)
{
    const TCalendarView half({500, 400}, {1000, 800}, Calendar(321, 240, 25, 75));
    // offsets 169.75 -> 170 and 420 in the picture; 321 / 2 = 160.5 -> 160
    EXPECT_EQ(half.Outline(), (TRect{85, 210, 245, 330}));
    EXPECT_TRUE(half.IsOverCalendar(85, 210));
    EXPECT_FALSE(half.IsOverCalendar(84, 210));
    EXPECT_FALSE(half.IsOverCalendar(85, 209));
    EXPECT_TRUE(half.IsOverCalendar(245, 329));
    EXPECT_FALSE(half.IsOverCalendar(246, 329));
    EXPECT_FALSE(half.IsOverCalendar(245, 330));
}

TEST(CalendarView, DraggedToTheEdgesItIsAtNoughtAndAHundredWhateverTheZoom)
{
    for (const TSize image : {TSize{1000, 800}, TSize{317, 254}, TSize{2500, 2000}}) {
        const TCalendarView view(image, {1000, 800}, Calendar(320, 240, 50, 50));
        const TRect end = view.Dragged(9999, 9999, 7, 3);
        EXPECT_EQ(end.Right, image.Width);
        EXPECT_EQ(end.Bottom, image.Height);
        EXPECT_EQ(view.Dropped(end).X, 100);
        EXPECT_EQ(view.Dropped(end).Y, 100);
        const TRect start = view.Dragged(-9999, -9999, 7, 3);
        EXPECT_EQ(view.Dropped(start).X, 0);
        EXPECT_EQ(view.Dropped(start).Y, 0);
    }
}

TEST(CalendarView, TheGrabbedPointStaysUnderTheMouse)
{
    const TCalendarView view({1000, 800}, {1000, 800}, Calendar(200, 100, 0, 0));
    EXPECT_TRUE(view.IsOverCalendar(199, 99));
    EXPECT_FALSE(view.IsOverCalendar(200, 99));
    EXPECT_FALSE(view.IsOverCalendar(199, 100));
    const TRect outline = view.Dragged(410, 365, 10, 15);
    EXPECT_EQ(outline, (TRect{400, 350, 600, 450}));
    EXPECT_EQ(view.Dropped(outline).X, 50);
    EXPECT_EQ(view.Dropped(outline).Y, 50);
}

TEST(CalendarView, ACalendarWithoutFreeSpaceStaysWhereItIs)
{
    const TCalendarView same({200, 100}, {200, 100}, Calendar(200, 300, 30, 40));
    const auto place = same.Dropped(same.Dragged(50, 50, 10, 10));
    EXPECT_EQ(place.X, 30);
    EXPECT_GE(place.Y, 0);
    EXPECT_LE(place.Y, 100);
    const TCalendarView none({0, 0}, {0, 0}, Calendar(10, 10, 30, 40));
    EXPECT_EQ(none.Dropped(none.Outline()).X, 30);
}
