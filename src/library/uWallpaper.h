// One wallpaper of the library, and the ordered, owning list of them.
#pragma once

#include "uColor.h"
#include "uPicture.h"
#include "uText.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace murala
{

enum TDisplayMode : std::uint8_t {
    dmTiled,
    dmCentered,
    dmStretched,
    dmMirrorTiled,
    dmFitHorizontally,
    dmFitVertically,
};
inline constexpr std::string_view DisplayModeNames[] = {
    "Tiled", "Centered", "Stretched", "Mirror Tiled", "Fit Horizontally", "Fit Vertically",
};

// How a tint is spread.
enum TGammaStyle : std::uint8_t { gsNone, gsSolid, gsHorizontal, gsVertical };
inline constexpr std::string_view GammaStyleNames[] = {"(None)", "Solid", "Horizontal", "Vertical"};

// The list view's columns, which the list can be sorted by.
enum TListColumn : int { lcTitle, lcFileName, lcFolder, lcCategory, ListColumnCount };

inline constexpr std::string_view NoEffect = "(None)";
inline constexpr std::string_view ListFileName = "Murala.Wallpaper.List";

class TMuWallpaperList;

class TMuWallpaper
{
public:
    TMuWallpaper() = default;
    explicit TMuWallpaper(std::string fileName) : m_fileName(std::move(fileName)) {}

    // Full path, the item's key.
    const std::string& FileName() const { return m_fileName; }
    // Of this wallpaper alone: no later one gets it.
    std::uint64_t Id() const { return m_id; }
    // 0: none assigned.
    std::int32_t ThumbnailNumber() const { return m_thumbnailNumber; }

    std::string Title;
    TDisplayMode DisplayMode = dmTiled;
    bool TransparentIcons = false;
    std::unique_ptr<TPicture> Thumbnail;
    TMuWallpaperList* Owner = nullptr;
    std::string Effect{NoEffect};
    std::int32_t GammaEndRed = 255, GammaEndGreen = 255, GammaEndBlue = 255;
    std::int32_t GammaStartBlue = 255, GammaStartRed = 255, GammaStartGreen = 255;
    TGammaStyle GammaStyle = gsNone;
    TColor DesktopColor = 0;
    std::string Category;

    // For an item that is in a list. ThumbnailFileName gives it a number when it has none (a stale
    // file of that number is deleted).
    std::string ThumbnailFileName();
    void DeleteThumbnailFile();
    void FreeThumbnail() { Thumbnail.reset(); }
    int IndexInList() const;
    TTint StartTint() const { return {GammaStartRed, GammaStartGreen, GammaStartBlue}; }
    TTint EndTint() const { return {GammaEndRed, GammaEndGreen, GammaEndBlue}; }
    void SetStartTint(TTint tint);
    void SetEndTint(TTint tint);
    bool StartTintIsGrey() const { return StartTint().IsGrey(); }
    bool EndTintIsGrey() const { return EndTint().IsGrey(); }
    void SetDesktopColor(TColor color) { DesktopColor = color; }

    // The list file's line, without its line end.
    std::string SaveToLine() const;
    void AppendLineTo(std::string& text) const;
    // Of an item that is in no list. Throws EConvertError; the item is then in an undefined state.
    void LoadFromLine(std::string_view line);

private:
    static std::uint64_t NewId();

    friend class TMuWallpaperList; // which indexes these
    std::uint64_t m_id = NewId();
    std::string m_fileName;
    std::int32_t m_thumbnailNumber = 0;
};

class TMuWallpaperList
{
public:
    // Bytes that are in order where the texts are, as the user's locale has it.
    using TSortKey = std::function<std::string(const std::string&)>;

    bool Busy = false;
    std::vector<std::string> LoadedThumbnails; // file names, oldest first
    std::string ThumbnailFolder;               // with a trailing divider
    std::int32_t MaxThumbnails = 200;

    TMuWallpaperList();
    ~TMuWallpaperList();
    TMuWallpaperList(const TMuWallpaperList&) = delete;
    TMuWallpaperList& operator=(const TMuWallpaperList&) = delete;

    int Count() const { return static_cast<int>(m_items.size()); }
    TMuWallpaper& Item(int index) const { return *m_items.at(static_cast<std::size_t>(index)); }
    TMuWallpaper& Add(std::unique_ptr<TMuWallpaper> item);
    // Takes the item out of the list and hands it to the caller.
    std::unique_ptr<TMuWallpaper> Delete(int index);
    // Takes out many at once (different indexes, in any order) in one pass; they come in the order
    // of the indexes.
    std::vector<std::unique_ptr<TMuWallpaper>> DeleteMany(const std::vector<int>& indexes);
    // For an item of the list.
    void SetThumbnailNumber(TMuWallpaper& item, std::int32_t number);
    int IndexOf(const TMuWallpaper* item) const;
    // The first item with exactly this file name, -1 when there is none.
    int IndexOfFileName(const std::string& fileName) const;
    bool ContainsFileName(const std::string& fileName) const; // does not walk the list
    void Clear();

    std::int32_t NextThumbnailNumber() const;
    // Throws EFileError when the folder cannot be made.
    void SetThumbnailFolder(std::string_view path);
    void ForgetThumbnail(const std::string& fileName); // of one item, should several have that file
    void FreeThumbnail(TMuWallpaper& item);
    // The first ones, but for those of files that are to be kept.
    void TrimThumbnails(int count, const std::unordered_set<std::string>& kept = {});
    void FreeAllThumbnails();

    // By the column's text, equal categories by their titles. Stable.
    void Sort(TListColumn column, bool ascending, const TSortKey& keyOf);

    // Both throw EFileError. LoadFromFile takes a missing file for an empty list. It throws
    // EListLineError at the first bad line; the items before it are then in the list, and the
    // file must be kept (TUserFile does) before it is written again.
    void SaveToFile(const std::string& path) const;
    void LoadFromFile(const std::string& path);

private:
    friend class TMuWallpaper;
    void AssignThumbnailNumber(TMuWallpaper& item);
    // After the item was taken out of m_items.
    void Release(TMuWallpaper& item);
    // The keys are the items' own file names.
    using TFileNames = std::unordered_multimap<std::string_view, TMuWallpaper*>;

    std::vector<std::unique_ptr<TMuWallpaper>> m_items;
    TFileNames m_byFileName;
    bool m_byteOrderMark = false;                        // the file begins with one
    mutable std::optional<std::int32_t> m_largestNumber; // empty: to be looked up
};

// A line of a list file that could not be read.
class EListLineError : public EConvertError
{
public:
    EListLineError(int line, const std::string& message) : EConvertError(message), Line(line) {}
    int Line; // from 1
};

} // namespace murala
