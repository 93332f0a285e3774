#include "Pictures.h"
#include "uIconBox.h"
#include "uSettings.h"
#include "uTestPictures.h"

using namespace murala;

namespace
{

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

TIconBoxSettings BoxSettings(bool border, bool onlyIcons)
{
    TIconBoxSettings settings;
    settings.Gamma = -128;
    settings.Border = border;
    settings.BorderColor = 0x112233;
    settings.OnlyIcons = onlyIcons;
    return settings;
}

std::vector<std::string> BoxMap(bool border, bool onlyIcons, const std::vector<TRect>& region,
                                TSize size)
{
    TBitmap picture = EvenBitmap(size.Width, size.Height, 0x646464);
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
        TIconBoxSettings settings = BoxSettings(false, false);
        settings.Gamma = gamma;
        DrawIconBox(picture, settings, {{0, 0, 1, 1}});
        EXPECT_EQ(RowsOf(picture), (TRows{{expected}})) << gamma;
    }
}
