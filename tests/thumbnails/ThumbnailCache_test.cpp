#include "ThumbnailFixture.h"

#include <array>
#include <map>

using namespace murala;

using ThumbnailCache = TThumbnailFixture;

TEST_F(ThumbnailCache, MakesThemOfOneSizeAndKeepsThemAsJpegFiles)
{
    TMuWallpaper& first = Add("a.bmp", 0x204060);
    List.SetThumbnailNumber(first, 17);
    TMuWallpaper& second = AddItem(Folder.File("b.jpg"));
    TBitmap halves = EvenBitmap(4000, 300, 0xFFFFFF);
    for (int y = 0; y < 300; ++y)
        std::fill_n(halves.Row(y), 2000, 0U);
    SaveJpegFile(halves, second.FileName(), 90);
    const TBitmap& made = Cache.GetThumbnail(second);
    EXPECT_EQ(made.Size(), (TSize{64, 48}));
    for (const auto& [x, level] : {std::pair(0, 0U), {30, 0U}, {33, 255U}, {63, 255U}})
        for (const int y : {0, 47})
            EXPECT_NEAR(made.Row(y)[x] & 0xFFU, level, 3) << x << ' ' << y;
    EXPECT_EQ(&Cache.GetThumbnail(second), &made);
    EXPECT_EQ(RowsOf(Cache.GetThumbnail(first))[47][63], 0x204060U);
    EXPECT_EQ(ImageFileSize(Folder.File("Thumbnails/Thumbnail.17.jpg")), (TSize{64, 48}));
    EXPECT_EQ(second.ThumbnailNumber(), 18);
    EXPECT_TRUE(FileExists(Folder.File("Thumbnails/Thumbnail.18.jpg")));
    EXPECT_EQ(Names(), "b a ");
}

TEST_F(ThumbnailCache, ScalesAJpegDownByItsPixels)
{
    for (const auto& [size, divisor] : {std::pair(TSize{16385, 1}, 8),
                                        {{128, 128}, 4},
                                        {{8193, 1}, 4},
                                        {{8192, 1}, 2},
                                        {{4097, 1}, 2},
                                        {{4096, 1}, 1},
                                        {{1 << 20, 4096}, 8},
                                        {{1, 1}, 1}})
        EXPECT_EQ(ThumbnailDivisor(size), divisor) << size.Width;
}

TEST_F(ThumbnailCache, AHitFromBehindTheEleventhPlaceGoesToTheFront)
{
    AddMany(13);
    for (TMuWallpaper* item : Items())
        Cache.GetThumbnail(*item);
    const std::string loaded = Names();
    EXPECT_EQ(loaded, "0 1 2 3 4 5 6 7 8 9 10 11 12 ");
    for (const int untouched : {0, 5, 10}) {
        Cache.GetThumbnail(List.Item(untouched));
        EXPECT_EQ(Names(), loaded) << untouched;
    }
    Cache.GetThumbnail(List.Item(11));
    EXPECT_EQ(Names(), "11 0 1 2 3 4 5 6 7 8 9 10 12 ");
    TMuWallpaper* const arriving[] = {&List.Item(12)};
    for (int i = 0; i < 3; ++i) { // seen once, painted again and again
        EXPECT_EQ(MakeAll({std::begin(arriving), std::end(arriving)}), "");
        EXPECT_NE(Cache.Held(List.Item(12)), nullptr);
        EXPECT_EQ(Names(), "12 11 0 1 2 3 4 5 6 7 8 9 10 ");
    }
    MakeAll({});
    List.TrimThumbnails(2);
    EXPECT_EQ(Cache.Held(List.Item(11)), nullptr);
    EXPECT_NE(Cache.Held(List.Item(0)), nullptr);
}

TEST_F(ThumbnailCache, LoadingAFileBeyondTheLimitFreesTen)
{
    AddMany(16);
    for (TMuWallpaper* item : Items())
        Cache.GetThumbnail(*item);
    List.TrimThumbnails(1);
    List.MaxThumbnails = 15;
    Cache.GetThumbnail(List.Item(0)); // 15 are not more than 15
    EXPECT_EQ(Names(), "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 0 ");
    List.Item(1).FreeThumbnail();
    List.ForgetThumbnail(List.Item(1).FileName());
    List.MaxThumbnails = 14;
    Cache.GetThumbnail(List.Item(1));
    EXPECT_EQ(Names(), "12 13 14 15 0 1 ");
    EXPECT_EQ(Color(List.Item(11)), -1);
    EXPECT_NE(Color(List.Item(12)), -1);
}

TEST_F(ThumbnailCache, AFailureFreesAllAndTriesOnceMoreThenReports)
{
    AddMany(15);
    TMuWallpaper& broken = AddItem(Folder.File("gone.bmp"));
    const std::string message = "A thumbnail could not be generated for image (" +
                                broken.FileName() + ").\r\nThe image (" + broken.FileName() +
                                ") could not be loaded. The image file may be corrupt or missing.";
    const auto fails = [&] {
        try {
            Cache.GetThumbnail(broken);
        } catch (const EThumbnail& error) {
            EXPECT_EQ(error.what(), message);
            return true;
        }
        return false;
    };
    EXPECT_TRUE(fails()); // nothing to free: at once
    for (int i = 0; i < 14; ++i)
        Cache.GetThumbnail(List.Item(i));
    EXPECT_TRUE(fails());
    EXPECT_EQ(List.MaxThumbnails, 200); // 13 after the first try; but it was not the room
    EXPECT_TRUE(List.LoadedThumbnails.empty());
    EXPECT_EQ(Color(List.Item(3)), -1);
    SaveBitmapFile(EvenBitmap(3, 3, 7), broken.FileName());
    EXPECT_FALSE(fails());
}

TEST_F(ThumbnailCache, MakesWhatIsShownFirstInShortSteps)
{
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp", "d.bmp"})
        Add(name);
    TMuWallpaper& broken = AddItem(Folder.File("x.bmp"));
    const auto items = Items();
    const auto begun = Cache.MakeNext(std::span(items).subspan(1, 2));
    EXPECT_EQ(begun.Progress, TThumbnailProgress::Working);
    EXPECT_EQ(Color(*items[1]), -1);
    // Scrolled away meanwhile: what is not shown any more is not made.
    EXPECT_EQ(MakeAll({items[3], &broken, items[0]}), "dx!a");
    EXPECT_EQ(Color(*items[1]), -1);
    EXPECT_EQ(MakeAll({items[3], &broken, items[0]}), "");
    SaveBitmapFile(EvenBitmap(3, 3, 0x123456), broken.FileName());
    EXPECT_EQ(MakeAll({&broken}), ""); // it has just been tried
    Cache.Refresh(broken);
    EXPECT_EQ(MakeAll({&broken}), "x");
    EXPECT_EQ(Color(broken), 0x123456);
}

TEST_F(ThumbnailCache, AnItemIsRemovedWhileItIsBeingMade)
{
    Add("a.bmp", 1);
    Add("b.bmp", 2);
    Cache.MakeNext(Items());
    Cache.MakeNext(Items());
    List.Delete(0);
    EXPECT_EQ(MakeAll(Items()), "b");
    EXPECT_EQ(Color(List.Item(0)), 2);
}

TEST_F(ThumbnailCache, TheSecondTryIsTheLastWhateverIsDrawnMeanwhile)
{
    AddMany(15);
    TMuWallpaper& broken = AddItem(Folder.File("x.bmp"));
    for (int i = 0; i < 15; ++i)
        Cache.GetThumbnail(List.Item(i));
    TMuWallpaper* const shown[] = {&List.Item(3), &broken};
    EXPECT_EQ(Cache.MakeNext(shown).Progress, TThumbnailProgress::Working);
    EXPECT_EQ(List.MaxThumbnails, 14);
    EXPECT_EQ(Names(), "3 "); // what is shown would be loaded again at once
    Cache.GetThumbnail(List.Item(7));
    const TThumbnailStep second = Cache.MakeNext(shown);
    EXPECT_EQ(second.Progress, TThumbnailProgress::Failed);
    EXPECT_EQ(second.Item, &broken);
    EXPECT_EQ(List.MaxThumbnails, 200);
    EXPECT_EQ(MakeAll({shown[0], shown[1]}), "");
    // A second try that works lacked memory: the lower limit stays, also after another failure.
    TMuWallpaper& late = AddItem(Folder.File("l.bmp"));
    EXPECT_EQ(Cache.MakeNext(std::array{&late}).Progress, TThumbnailProgress::Working);
    SaveBitmapFile(EvenBitmap(3, 3, 7), late.FileName());
    EXPECT_EQ(MakeAll({&late}), "l");
    const int lower = List.MaxThumbnails;
    EXPECT_LT(lower, 200);
    EXPECT_EQ(MakeAll({&AddItem(Folder.File("y.bmp"))}), "y!");
    EXPECT_EQ(List.MaxThumbnails, lower);
}

TEST_F(ThumbnailCache, WhatIsShownStaysHoweverItIsScrolledAndPainted)
{
    AddMany(60);
    AddItem(Folder.File("missing.jpg"));
    auto items = Items();
    std::rotate(items.begin() + 30, items.end() - 1, items.end());
    List.MaxThumbnails = 12;
    const auto paint = [](std::span<TMuWallpaper* const> shown) {
        return std::ranges::count_if(
            shown, [](auto* each) { return TThumbnailCache::Held(*each) != nullptr; });
    };
    for (const int first : {0, 5, 20, 38, 13, 0}) {
        const auto shown = std::span(items).subspan(static_cast<std::size_t>(first), 23);
        std::map<const TMuWallpaper*, int> made;
        for (int step = 0; step < 600; ++step) {
            paint(shown);
            const TThumbnailStep done = Cache.MakeNext(shown);
            made[done.Item] += done.Progress == TThumbnailProgress::Made ? 1 : 0;
        }
        for (const auto& [item, times] : made)
            EXPECT_LE(times, 1) << first << ' ' << item->FileName();
        EXPECT_EQ(Cache.MakeNext(shown).Progress, TThumbnailProgress::Nothing) << first;
        EXPECT_EQ(paint(shown), first > 7 && first <= 30 ? 22 : 23) << first;
        EXPECT_LE(List.LoadedThumbnails.size(), 23U + 12) << first;
    }
    EXPECT_EQ(List.MaxThumbnails, 12);
}

TEST_F(ThumbnailCache, WhatFailedIsTriedAgainWhenItIsShownAnewAndNotTooOften)
{
    TMuWallpaper& late = AddItem(Folder.File("late.bmp"));
    TMuWallpaper& other = Add("a.bmp");
    EXPECT_EQ(MakeAll({&late}), "l!");
    EXPECT_EQ(MakeAll({&other}), "a");
    EXPECT_EQ(MakeAll({&late, &other}), "") << "too early";
    Cache.RetryPause = {};
    EXPECT_EQ(MakeAll({&late, &other}), "") << "it is at rest";
    Cache.ShowAnew();
    EXPECT_EQ(MakeAll({&late, &other}), "l!");
    SaveBitmapFile(EvenBitmap(3, 3, 7), late.FileName());
    EXPECT_EQ(MakeAll({&other}), "");
    EXPECT_EQ(MakeAll({&late, &other}), "l");
}

TEST_F(ThumbnailCache, TwoItemsWithOneFileAreTwoItems)
{
    TMuWallpaper& first = Add("a.bmp");
    TMuWallpaper& second = AddItem(first.FileName());
    Cache.GetThumbnail(first);
    Cache.GetThumbnail(second);
    List.TrimThumbnails(1);
    EXPECT_EQ(Names(), "a ");
    EXPECT_EQ((Color(first) == -1) + (Color(second) == -1), 1);
    Cache.GetThumbnail(first);
    Cache.GetThumbnail(second);
    Cache.Refresh(second);
    Cache.Refresh(second); // is not in memory
    EXPECT_EQ(Names(), "a ");
    EXPECT_NE(Color(first), -1);
    List.TrimThumbnails(10);
    EXPECT_EQ(Color(first), -1);
}
