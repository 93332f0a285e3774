#include "uAddOns.h"

#include "Pictures.h"
#include "uDesktopFakes.h"
#include "uIconBox.h"
#include "uMuCalendar.h"
#include "uTextFakes.h"

using namespace murala;

namespace
{

TBitmap Grey(int width, int height)
{
    TBitmap bitmap(width, height);
    std::fill_n(bitmap.Row(0), width * height, 0x646464U);
    return bitmap;
}

// A letter a pixel: "." as it was, "t" tinted, "b" the border's colour, "?" anything else.
std::vector<std::string> Map(const TBitmap& picture)
{
    std::vector<std::string> rows;
    for (const auto& row : RowsOf(picture)) {
        rows.emplace_back();
        for (const TPixel pixel : row)
            rows.back() += pixel == 0x646464   ? '.'
                           : pixel == 0x323232 ? 't'
                           : pixel == 0x332211 ? 'b'
                                               : '?';
    }
    return rows;
}

TMuSettings BoxSettings(bool border, bool onlyIcons)
{
    TMuSettings settings;
    settings.UseIconBox = true;
    settings.IconBoxGamma = -128;
    settings.IconBoxBorder = border;
    settings.IconBoxBorderColor = 0x112233;
    settings.IconBoxOnlyIcons = onlyIcons;
    return settings;
}

std::vector<std::string> BoxMap(bool border, bool onlyIcons, const std::vector<TRect>& region,
                                TSize size)
{
    TBitmap picture = Grey(size.Width, size.Height);
    DrawIconBox(picture, BoxSettings(border, onlyIcons), region);
    return Map(picture);
}

using TMap = std::vector<std::string>;

} // namespace

TEST(IconBox, TheBoxIsFivePixelsWiderThanAllIcons)
{
    const std::vector<TRect> region = {{7, 6, 8, 7}, {9, 7, 10, 8}};
    EXPECT_EQ(
        BoxMap(true, false, region, {17, 14}),
        (TMap{".................", "..bbbbbbbbbbbbb..", "..btttttttttttb..", "..btttttttttttb..",
              "..btttttttttttb..", "..btttttttttttb..", "..btttttttttttb..", "..btttttttttttb..",
              "..btttttttttttb..", "..btttttttttttb..", "..btttttttttttb..", "..btttttttttttb..",
              "..bbbbbbbbbbbbb..", "................."}));
}

TEST(IconBox, AloneTheIconsAreTintedAndWhereTheyOverlapOnlyOnce)
{
    const std::vector<TRect> region = {{1, 1, 4, 3}, {2, 2, 6, 4}, {2, 2, 3, 3},
                                       {7, 1, 7, 9}, {9, 4, 8, 1}, {-3, 4, 2, 6}};
    EXPECT_EQ(BoxMap(false, true, region, {8, 6}),
              (TMap{"........", ".ttt....", ".ttttt..", "..tttt..", "tt......", "tt......"}));
    // The frame lies five pixels outside of the icons, where there are none.
    EXPECT_EQ(BoxMap(true, true, region, {8, 6}), BoxMap(false, true, region, {8, 6}));
}

TEST(IconBox, AnEmptyRegionIsThePicturesCorner)
{
    for (const std::vector<TRect>& region :
         {std::vector<TRect>{}, std::vector<TRect>{{3, 3, 3, 9}}}) {
        EXPECT_EQ(BoxMap(true, false, region, {7, 6}),
                  (TMap{"ttttb..", "ttttb..", "ttttb..", "ttttb..", "bbbbb..", "......."}));
        EXPECT_EQ(BoxMap(true, true, region, {2, 1}), TMap{".."});
    }
}

TEST(IconBox, TintsAllChannelsAlike)
{
    for (const auto& [gamma, expected] :
         {std::pair(0, 0x0A64C8U), {255, 0xFFFFFFU}, {-255, 0U}, {9999, 0xFFFFFFU}, {-9999, 0U}}) {
        TBitmap picture = BitmapOf({{0x0A64C8}});
        TMuSettings settings = BoxSettings(false, false);
        settings.IconBoxGamma = gamma;
        DrawIconBox(picture, settings, {{0, 0, 1, 1}});
        EXPECT_EQ(RowsOf(picture), (TRows{{expected}})) << gamma;
    }
}

namespace
{

class AddOns : public testing::Test
{
protected:
    struct TIcons : TIconView {
        std::optional<std::vector<TRect>> Region;
        int Asked = 0;
        bool CanBeAsked() override { return Region.has_value(); }
        TColor GetIconTextBackColor() override { return 0; }
        void SetIconTextBackColor(TColor) override {}
        TIconRegion GetIconRegion() override
        {
            ++Asked;
            return Region ? TIconRegion{*Region, {}} : TIconRegion{{}, "There are none."};
        }
    };

    TBitmap WithCalendar(TBitmap picture)
    {
        TFixedText text;
        TMuCalendar calendar(text, EnglishDateNames(), Clock.Time);
        calendar.LoadFromFile(Folder.Path());
        calendar.Draw(picture);
        return picture;
    }
    TRows Drawn(const TBeforeSave& addOns)
    {
        TBitmap picture = Grey(100, 80);
        addOns(picture);
        return RowsOf(picture);
    }

    TTempFolder Folder;
    TFixedText Text;
    TFakeClock Clock;
    TIcons Icons;
    TAddOnServices Services{Folder.Path(), Text, EnglishDateNames(), Clock, Icons};
    TMuSettings Settings = BoxSettings(true, false);
};

} // namespace

TEST_F(AddOns, AreDrawnOnceEachTheCalendarFirst)
{
    Folder.Write("mucalendar.ini", "[Options]\nCalendarWidth=90\nCalendarHeight=70\n");
    Icons.Region = {{20, 20, 60, 50}};
    TBitmap expected = WithCalendar(Grey(100, 80));
    const TRows calendar = RowsOf(expected);
    DrawIconBox(expected, Settings, *Icons.Region);
    TBitmap box = Grey(100, 80);
    DrawIconBox(box, Settings, *Icons.Region);
    struct {
        bool UseCalendar, UseIconBox;
        TRows Desktop, Preview;
    } const cases[] = {
        {true, true, RowsOf(expected), calendar},
        {true, false, calendar, calendar},
        {false, true, RowsOf(box), RowsOf(Grey(100, 80))},
        {false, false, RowsOf(Grey(100, 80)), RowsOf(Grey(100, 80))},
    };
    for (const auto& each : cases) {
        Settings.UseCalendar = each.UseCalendar, Settings.UseIconBox = each.UseIconBox;
        EXPECT_EQ(Drawn(DesktopAddOns(Services, Settings)), each.Desktop);
        const int asked = Icons.Asked;
        EXPECT_EQ(Drawn(PreviewAddOns(Services, Settings)), each.Preview);
        EXPECT_EQ(Icons.Asked, asked);
    }
}

TEST_F(AddOns, WithoutAnIconListThereIsNoBox)
{
    EXPECT_EQ(Drawn(DesktopAddOns(Services, Settings)), RowsOf(Grey(100, 80)));
    EXPECT_EQ(Icons.Asked, 1);
}

TEST_F(AddOns, TheCalendarShowsTheMonthOfTheMoment)
{
    Settings.UseCalendar = true;
    const TBeforeSave addOns = PreviewAddOns(Services, Settings);
    Clock.Time = *EncodeDateTime({2026, 12, 31, 23, 59, 59});
    Drawn(addOns);
    EXPECT_EQ(Text.Drawn.front().Text, "December 2026");
    Text.Drawn.clear();
    Clock.Time += 2 / SecondsPerDay;
    Drawn(addOns);
    EXPECT_EQ(Text.Drawn.front().Text, "January 2027");
}
