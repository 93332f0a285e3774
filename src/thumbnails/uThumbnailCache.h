// The thumbnails of the library: kept as small JPEG files, loaded when they are asked for, a
// limited number of them in memory.
#pragma once

#include "uCloudFile.h"
#include "uThumbnailMaker.h"
#include "uWallpaper.h"

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace murala
{

// In pixels, by the setting ThumbnailSize.
inline constexpr TSize ThumbnailDisplaySizes[] = {{32, 20}, {64, 48}, {80, 60}};

// "A thumbnail could not be generated for image (%s)." and, on a line of its own, why.
class EThumbnail : public std::runtime_error
{
public:
    EThumbnail(const std::string& fileName, const std::string& reason);
};

struct TThumbnailStatistics {
    std::int64_t Bytes = 0;
    int Count = 0;
    std::int64_t DiskBytes = 0; // of the disk with the thumbnail folder; 0 when it is unknown

    std::string SizeText() const;  // "%6.2f KB"
    std::string ShareText() const; // "%6.2f%%", of the disk
    std::string CountText() const;
};

enum class TThumbnailProgress {
    Nothing, // all are there, or cannot be made
    Working, // more steps are needed
    Made,    // Item's thumbnail is in memory now
    Failed,  // Item's cannot be made; Error says why. It is tried again when it is shown anew
};
struct TThumbnailStep {
    TThumbnailProgress Progress = TThumbnailProgress::Nothing;
    TMuWallpaper* Item = nullptr;
    std::string Error;
};

// Works on the list that it was made for, which must live longer.
class TThumbnailCache
{
public:
    explicit TThumbnailCache(TMuWallpaperList& list) : m_list(list) {}

    // The thumbnail if it is in memory, else null. Painting may ask as often as it likes.
    static const TBitmap* Held(const TMuWallpaper& item);

    // Takes the thumbnail from memory, else loads its file (when that is newer than the picture),
    // else makes it. One that is used and is not among the first eleven moves to the front, where
    // it is the next to be freed; this odd order is intended. After a failure all thumbnails are
    // freed and it is tried once more. Throws EThumbnail.
    const TBitmap& GetThumbnail(TMuWallpaper& item);

    // A short step towards the first of the items that is not in memory: loading a file, or a
    // part of making one. The items are those on the screen, of which none is freed whatever the
    // limit; those that have come there since the last call count as used (see GetThumbnail), or,
    // some time after they failed, are tried again. Never throws for a picture's sake.
    TThumbnailStep MakeNext(std::span<TMuWallpaper* const> shown);
    // The same for one item, on the screen or not.
    TThumbnailStep Make(TMuWallpaper& item);
    // Treats everything on the screen as having just come there.
    void ShowAnew() { m_shown.clear(); }

    // Frees the thumbnail and deletes its file, so that it is made again when it is asked for.
    // False when the file cannot be deleted; the cache then ignores it.
    bool Refresh(TMuWallpaper& item);

    // Gives a number to every item that has none.
    TThumbnailStatistics Statistics();

    // Once, after a thumbnail could not be kept as a file: what the user should know. Else empty.
    std::string TakeNotice();

    std::chrono::milliseconds RetryPause{3000}; // at least, after a failure
    // Pictures that a cloud service would have to fetch are left where they are, until they are
    // refreshed.
    std::function<bool(std::string_view file)> IsElsewhere = IsKeptElsewhere;

private:
    struct TMaking {
        TMuWallpaper* Item;
        std::string FileName; // a new item may lie at the address of one that is gone
        TThumbnailMaker Maker;
    };
    void Touch(const TMuWallpaper& item);
    void Show(std::span<TMuWallpaper* const> shown);
    void Arrive(const TMuWallpaper& item);
    TThumbnailStep Advance(TMuWallpaper& item);
    bool IsBeingMade(const TMuWallpaper& item) const;
    bool IsWanted(const TMuWallpaper& item) const;
    TMuWallpaper* NextWanted(std::span<TMuWallpaper* const> shown) const;
    void MakeRoom();
    bool LoadKept(TMuWallpaper& item, const std::string& file);
    void Keep(const TBitmap& thumbnail, const std::string& file);
    void Save(const TBitmap& thumbnail, const std::string& file);
    TThumbnailStep Hold(TMuWallpaper& item, TBitmap thumbnail);
    TThumbnailStep Recover(TMuWallpaper& item, const std::string& reason);
    bool IsShown(const std::string& fileName) const { return m_shownFiles.contains(fileName); }
    void EndSecondTry(std::optional<std::int32_t> limit);

    using TClock = std::chrono::steady_clock;
    TMuWallpaperList& m_list;
    std::optional<TMaking> m_making;
    std::string m_secondTry;                   // the file name of the item that failed once
    std::optional<std::int32_t> m_limitBefore; // as it was before it was lowered for a second try
    std::unordered_map<std::string, TClock::time_point> m_failed; // by file name
    std::unordered_set<std::string> m_refreshed; // files that the user has asked for
    std::vector<std::uint64_t> m_shown;          // ids
    std::unordered_set<std::string> m_shownFiles;
    std::unordered_set<std::string> m_undeletable; // kept files that are out of date
    std::string m_notice;
    bool m_isNoticeTaken = false;
};

// Makes all thumbnails of a list again, one after the other. The list must not change meanwhile.
class TThumbnailRefresh
{
public:
    // Frees all thumbnails in memory.
    TThumbnailRefresh(TThumbnailCache& cache, TMuWallpaperList& list);

    // A short step; false when all are made. What is made stays when the caller stops before.
    bool Step();
    // The index of the item that is worked on; the number of items when all are done.
    int Position() const { return m_position; }
    // What could not be made.
    const std::vector<std::string>& Errors() const { return m_errors; }

private:
    TThumbnailCache& m_cache;
    TMuWallpaperList& m_list;
    int m_position = 0;
    bool m_isBegun = false; // with the item at m_position
    std::vector<std::string> m_errors;
};

} // namespace murala
