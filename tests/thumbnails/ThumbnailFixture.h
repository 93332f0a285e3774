// A list of pictures in a folder, and the cache of their thumbnails.
#pragma once

#include "uThumbnailCache.h"

#include "Pictures.h"
#include "uJpegFile.h"
#include "uTestPictures.h"

#include <chrono>

namespace murala
{

namespace fs = std::filesystem;

inline void SetAge(const std::string& file, int secondsAgo)
{
    static const auto now = fs::file_time_type::clock::now();
    fs::last_write_time(NativePath(file), now - std::chrono::seconds(secondsAgo));
}

// A list of pictures in a folder, each of one colour, made a minute ago.
class TThumbnailFixture : public testing::Test
{
protected:
    TThumbnailFixture() { List.SetThumbnailFolder(Folder.File("Thumbnails")); }

    TMuWallpaper& Add(const std::string& name, TPixel color = 0x204060, int width = 9)
    {
        const std::string file = Folder.File(name);
        SaveBitmapFile(EvenBitmap(width, 5, color), file);
        SetAge(file, 60);
        return AddItem(file);
    }
    TMuWallpaper& AddItem(const std::string& file)
    {
        return List.Add(std::make_unique<TMuWallpaper>(file));
    }
    void AddMany(int count)
    {
        for (int i = 0; i < count; ++i)
            Add(std::to_string(i) + ".bmp");
    }
    // The thumbnail's colour; -1 when it is not in memory.
    static std::int64_t Color(const TMuWallpaper& item)
    {
        const auto* thumbnail = static_cast<const TBitmap*>(item.Thumbnail.get());
        return thumbnail ? std::int64_t{thumbnail->Row(20)[30] & 0xFFFFFFU} : -1;
    }
    std::string Names() const
    {
        std::string names;
        for (const std::string& name : List.LoadedThumbnails)
            names += FileNamePart(name).substr(0, FileNamePart(name).find('.')) + ' ';
        return names;
    }
    std::vector<TMuWallpaper*> Items() const
    {
        std::vector<TMuWallpaper*> items;
        for (int i = 0; i < List.Count(); ++i)
            items.push_back(&List.Item(i));
        return items;
    }
    // The names of those that were made, "!" behind one that could not be.
    std::string MakeAll(const std::vector<TMuWallpaper*>& shown)
    {
        std::string made;
        for (int i = 0; i < 2000; ++i) {
            const TThumbnailStep step = Cache.MakeNext(shown);
            if (step.Progress == TThumbnailProgress::Nothing)
                return made;
            if (step.Progress != TThumbnailProgress::Working)
                made += FileNamePart(step.Item->FileName()).substr(0, 1);
            if (step.Progress == TThumbnailProgress::Failed)
                made += "!";
        }
        return made + " and never ends";
    }

    TTempFolder Folder;
    TMuWallpaperList List;
    TThumbnailCache Cache{List};
};

} // namespace murala
