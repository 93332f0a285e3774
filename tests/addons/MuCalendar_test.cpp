#include "uMuCalendar.h"

#include "Pictures.h"
#include "uDateFormat.h"
#include "uTextFakes.h"

#include <climits>

using namespace murala;

namespace
{

TBitmap Background(int width, int height)
{
    TBitmap bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            bitmap.Row(y)[x] =
                static_cast<TPixel>((x * 5 % 256) << 16 | (y * 3 % 256) << 8 | (x ^ y) % 256);
    return bitmap;
}

// Small letters and tints that tell every area and every channel from the others.
TCalendarSettings Settings(int width, int height)
{
    TCalendarSettings settings = DefaultCalendarSettings();
    settings.CalendarWidth = width, settings.CalendarHeight = height;
    settings.MainGamma = {64, -64, 10};
    settings.TitleGamma = {-200, 20, 30};
    settings.DayHeadingGamma = {0, 128, -128};
    settings.DayBoxGamma = {-30, 90, 200};
    settings.TitleFont = {"Title", 15, true, false, false, false, 0x112233};
    settings.DayHeadingFont = {"Heading", 5, false, false, false, false, 0x445566};
    settings.DayFont = {"Day", 6, false, false, false, false, 0x778899};
    settings.BorderColor = 0xAABBCC;
    return settings;
}

// Tells two pictures apart, whichever pixel differs.
std::uint32_t Sum(const TBitmap& bitmap)
{
    std::uint32_t sum = 2166136261U;
    for (const auto& row : RowsOf(bitmap))
        for (const TPixel pixel : row)
            sum = (sum ^ pixel) * 16777619U;
    return sum;
}

class MuCalendar : public testing::Test
{
protected:
    TFixedText Text;
    TMuCalendar Calendar{Text, EnglishDateNames(), 0};
};

} // namespace

TEST_F(MuCalendar, EveryPixelAndTextStaysWhereTheRulesPutIt)
{
    struct TDays {
        int First, InFirstMonth, InMonth;
    };
    // The sums are those of pictures that were compared with the rules pixel by pixel once.
    const struct {
        TDateParts Date;
        TDays Days;
        TSize Calendar;
        bool HasBorders;
        int X, Y; // percent
        TSize Picture;
        std::uint32_t Sum;
    } cases[] = {
        // begins on a Monday
        {{2026, 6, 15}, {1, 30, 30}, {320, 240}, false, 50, 50, {400, 301}, 0x6838E51A},
        // shows three months
        {{2026, 8, 1}, {27, 31, 31}, {253, 187}, true, 0, 0, {300, 200}, 0xF9FE2F42},
        // a February of a leap year
        {{2024, 2, 29}, {29, 31, 29}, {150, 171}, true, 100, 100, {401, 300}, 0x30CBF790},
        // four weeks exactly, and no leap year
        {{2021, 2, 28}, {1, 28, 28}, {325, 250}, false, 0, 100, {331, 257}, 0x5A32D10D},
        // the year ends; larger than the picture
        {{2025, 12, 31}, {1, 31, 31}, {450, 350}, true, 50, 50, {301, 222}, 0x6EFCFDBD},
        {{2025, 12, 1}, {1, 31, 31}, {450, 350}, true, 100, 0, {301, 222}, 0xC7187417},
        // too small for boxes, and for the texts
        {{2026, 11, 1}, {26, 31, 30}, {40, 60}, true, 33, 77, {90, 80}, 0xD708F048},
    };
    for (const auto& each : cases) {
        Text.Drawn.clear();
        Calendar.Settings = Settings(each.Calendar.Width, each.Calendar.Height);
        Calendar.Settings.CalendarX = each.X, Calendar.Settings.CalendarY = each.Y;
        Calendar.Settings.CalendarBorders = each.HasBorders;
        const TDateTime day = *EncodeDateTime(each.Date);
        Calendar.Date = day + 0.999999; // the end of its last second
        TBitmap drawn = Background(each.Picture.Width, each.Picture.Height);
        Calendar.Draw(drawn);
        const std::string title = FormatDate("mmmm yyyy", day, EnglishDateNames());
        EXPECT_EQ(Sum(drawn), each.Sum) << title;
        ASSERT_EQ(Text.Drawn.size(), 50U);
        EXPECT_EQ(Text.Drawn[0].Text, title);
        for (std::size_t i = 0; i < 7; ++i)
            EXPECT_EQ(Text.Drawn[1 + i].Text, EnglishDateNames().ShortDays[i]);
        int shown = each.Days.First;
        int last = shown == 1 ? each.Days.InMonth : each.Days.InFirstMonth;
        for (std::size_t i = 8; i < 50; ++i, ++shown) {
            if (shown > last)
                shown = 1, last = each.Days.InMonth; // of a third month only the beginning is seen
            EXPECT_EQ(Text.Drawn[i].Text, (shown < 10 ? "0" : "") + std::to_string(shown)) << title;
        }
    }
}

// Anchors for the rules: what the calendar out of the box has at some points.
TEST_F(MuCalendar, OutOfTheBoxItLightensItsAreas)
{
    TBitmap picture(640, 480);
    std::fill_n(picture.Row(0), 640 * 480, 0U);
    Calendar.Settings = DefaultCalendarSettings();
    Calendar.Date = *EncodeDateTime({2026, 11, 21});
    Calendar.Draw(picture);
    const auto at = [&](int x, int y) { return picture.Row(y)[x] & 0xFFU; };
    EXPECT_EQ(at(159, 240), 0U); // left of it
    EXPECT_EQ(at(160, 240), 64U);
    EXPECT_EQ(at(479, 240), 64U);
    EXPECT_EQ(at(480, 240), 0U);
    EXPECT_EQ(at(160, 120), 192U);
    EXPECT_EQ(at(160, 154), 192U); // 32 pixels and the gap of 3
    EXPECT_EQ(at(160, 155), 224U);
    EXPECT_EQ(at(160, 173), 224U); // 16 pixels and the gap again
    EXPECT_EQ(at(160, 174), 64U);
    EXPECT_EQ(at(200, 359 - 4), 64U + 191U * 64 / 255); // a box, lightened twice
    EXPECT_EQ(Text.Drawn[0].X, 160 + (320 - 13 * 16) / 2);
}

TEST_F(MuCalendar, ImpossibleSizesDrawNothingAndBreakNothing)
{
    const TBitmap background = Background(60, 50);
    Calendar.Date = 46000;
    for (const auto& [width, height] :
         {std::pair(0, 20), {20, 0}, {-20, 20}, {20, -20}, {INT_MIN, INT_MIN}}) {
        Calendar.Settings = Settings(width, height);
        TBitmap drawn = background.Copy();
        Calendar.Draw(drawn);
        EXPECT_EQ(RowsOf(drawn), RowsOf(background)) << width << ' ' << height;
    }
    const int extremes[] = {INT_MIN, -1, 0, 1, 50, INT_MAX};
    for (const int x : extremes)
        for (const int y : extremes)
            for (const int size : {1, 7, 5000, INT_MAX}) {
                Calendar.Settings = Settings(size, size);
                Calendar.Settings.CalendarX = x, Calendar.Settings.CalendarY = y;
                Calendar.Settings.CalendarBorders = true;
                Calendar.Settings.TitleFont.Size = x;
                Calendar.Settings.MainGamma = {x, y, x};
                TBitmap drawn = background.Copy();
                Calendar.Draw(drawn);
            }
    for (const TDateTime date : {-1e300, -700000.0, 0.0, 2958465.9, 1e300}) {
        Calendar.Settings = Settings(50, 50);
        Calendar.Date = date;
        TBitmap drawn = background.Copy();
        Calendar.Draw(drawn);
    }
    TBitmap nothing;
    Calendar.Draw(nothing);
}

TEST_F(MuCalendar, RendersOverItsPictureIntoATargetOfAnySize)
{
    Calendar.Settings = Settings(90, 80);
    Calendar.Date = 46000;
    Calendar.Picture = Background(120, 100);
    TBitmap drawn = Calendar.Picture.Copy();
    Calendar.Draw(drawn);
    TBitmap same(120, 100), half(60, 50), none;
    Calendar.Render(same);
    Calendar.Render(half);
    Calendar.Render(none);
    EXPECT_EQ(RowsOf(same), RowsOf(drawn));
    EXPECT_EQ(RowsOf(none), RowsOf(drawn));
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 60; ++x)
            ASSERT_EQ(half.Row(y)[x], drawn.Row(2 * y)[2 * x]);
    EXPECT_EQ(RowsOf(Calendar.Picture), RowsOf(Background(120, 100)));
}

TEST_F(MuCalendar, SpeaksTheUsersLanguage)
{
    TDateNames names = EnglishDateNames();
    names.Months[10] = "Nov\xC3\xAAmber";
    for (std::size_t i = 0; i < 7; ++i)
        names.ShortDays[i] = "D" + std::to_string(i);
    TMuCalendar calendar(Text, names, *EncodeDateTime({2026, 11, 21}));
    calendar.Settings = Settings(100, 100);
    calendar.Settings.TitleFormat = "'it is' mmmm";
    TBitmap picture = Background(100, 100);
    calendar.Draw(picture);
    EXPECT_EQ(Text.Drawn[0].Text, "it is Nov\xC3\xAAmber");
    EXPECT_EQ(Text.Drawn[1].Text + Text.Drawn[7].Text, "D0D6");
}

TEST_F(MuCalendar, ItsFileHasEveryKeyInItsOrder)
{
    const TTempFolder folder;
    Calendar.LoadFromFile(folder.Path());
    EXPECT_EQ(Calendar.Settings, DefaultCalendarSettings());
    EXPECT_EQ(folder.Count(), 0);
    Calendar.SaveToFile(folder.Path());
    EXPECT_EQ(ReadWholeFile(folder.File("mucalendar.ini")),
              "[Options]\r\nTitleFormat=mmmm yyyy\r\nCalendarWidth=320\r\nCalendarHeight=240\r\n"
              "CalendarX=50\r\nCalendarY=50\r\nMainGammaRed=64\r\nMainGammaGreen=64\r\n"
              "MainGammaBlue=64\r\nTitleGammaRed=192\r\nTitleGammaGreen=192\r\n"
              "TitleGammaBlue=192\r\nDayHeadingGammaRed=224\r\nDayHeadingGammaGreen=224\r\n"
              "DayHeadingGammaBlue=224\r\nDayBoxGammaRed=64\r\nDayBoxGammaGreen=64\r\n"
              "DayBoxGammaBlue=64\r\nTitleFontName=Times New Roman\r\nTitleFontSize=24\r\n"
              "TitleFontStyleBold=1\r\nTitleFontStyleItalic=0\r\nTitleFontStyleUnderline=0\r\n"
              "TitleFontStyleStrikeout=0\r\nTitleFontColor=0\r\nDayHeadingFontName=Arial\r\n"
              "DayHeadingFontSize=12\r\nDayHeadingFontStyleBold=1\r\n"
              "DayHeadingFontStyleItalic=0\r\nDayHeadingFontStyleUnderline=0\r\n"
              "DayHeadingFontStyleStrikeout=0\r\nDayHeadingFontColor=0\r\nDayFontName=Arial\r\n"
              "DayFontSize=10\r\nDayFontStyleBold=1\r\nDayFontStyleItalic=0\r\n"
              "DayFontStyleUnderline=0\r\nDayFontStyleStrikeout=0\r\nDayFontColor=0\r\n"
              "CalendarBorders=0\r\nBorderColor=16777215\r\n");
}

TEST_F(MuCalendar, SettingsAreReadAsTheyWereSavedAndOtherLinesStay)
{
    const TTempFolder folder;
    folder.Write("mucalendar.ini", "; mine\r\n[Options]\r\nViewMode=0\r\nCalendarWidth=wide\r\n"
                                   "CalendarX=-7\r\n[Other]\r\nKey=1\r\n");
    Calendar.LoadFromFile(folder.Path());
    EXPECT_EQ(Calendar.Settings.CalendarWidth, 320);
    EXPECT_EQ(Calendar.Settings.CalendarX, -7);
    TCalendarSettings odd = Settings(-1, INT_MAX);
    odd.TitleFormat = " 'quoted' ";
    odd.CalendarBorders = true;
    odd.BorderColor = 0x80000008;
    Calendar.Settings = odd;
    Calendar.SaveToFile(folder.Path());
    TMuCalendar again(Text, EnglishDateNames(), 0);
    again.LoadFromFile(folder.Path());
    EXPECT_EQ(again.Settings, odd);
    TIniFile file = TIniFile::Load(folder.File("mucalendar.ini"));
    EXPECT_EQ(file.Read("Other", "Key"), "1");
    TCalendarEditorSettings editor = LoadCalendarEditorSettings(file, CalendarSection);
    EXPECT_EQ(editor, (TCalendarEditorSettings{0, "Planet02.jpg"}));
    editor = {1, "my planet.jpg"};
    SaveCalendarEditorSettings(file, CalendarSection, editor, false);
    EXPECT_FALSE(file.Read(CalendarSection, "BackgroundFileName").has_value());
    SaveCalendarEditorSettings(file, CalendarSection, editor, true);
    EXPECT_EQ(LoadCalendarEditorSettings(file, CalendarSection), editor);
}
