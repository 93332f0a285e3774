#include "uThumbnailCache.h"

#include "Pictures.h"

using namespace murala;

// Every write to this device fails as on a full disk.
TEST(ThumbnailCacheOnAFullDisk, ThumbnailsAreShownAndNoHalfFileStays)
{
    const TTempFolder folder;
    TMuWallpaperList list;
    list.SetThumbnailFolder(folder.File("Thumbnails"));
    TMuWallpaper& added = list.Add(std::make_unique<TMuWallpaper>(folder.File("a.bmp")));
    SaveBitmapFile(NumberedBitmap(64, 48), added.FileName());
    const std::string kept = added.ThumbnailFileName();
    std::filesystem::create_symlink("/dev/full", kept + ".new");
    TThumbnailCache cache(list);
    EXPECT_EQ(cache.GetThumbnail(added).Row(47)[63], 64U * 48);
    EXPECT_NE(cache.TakeNotice().find(kept), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(folder.File("Thumbnails")));
}
