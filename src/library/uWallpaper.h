// One wallpaper of the library, and the ordered, owning list of them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace murala
{

// A picture that is held in memory; its kind is the thumbnail cache's affair.
class TPicture
{
public:
    virtual ~TPicture() = default;
};

// 0x00BBGGRR: red in the low byte.
using TColor = std::uint32_t;

enum : std::uint8_t {
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

enum : std::uint8_t { gsNone, gsSolid, gsHorizontal, gsVertical };
inline constexpr std::string_view GammaStyleNames[] = {"(None)", "Solid", "Horizontal", "Vertical"};

inline constexpr std::string_view NoEffect = "(None)";
inline constexpr std::string_view ListFileName = "Murala.Wallpaper.List";

// A line of the list file that cannot be taken; `what()` says which field, and why.
class EConvertError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class TMuWallpaperList;

class TMuWallpaper
{
public:
    // Full path, the item's key. After the item was added to a list only the list may change it.
    std::string FileName;
    std::string Title;
    std::uint8_t DisplayMode = dmTiled;
    bool TransparentIcons = false;
    std::unique_ptr<TPicture> Thumbnail;
    TMuWallpaperList* Owner = nullptr;
    // 0: none assigned. As with the file name, only the list may change it once the item is in one.
    std::int32_t ThumbnailNumber = 0;
    std::string Effect{NoEffect};
    // Tint, each -256..255: -256 makes a channel black, 0 leaves it, 255 makes it full.
    std::int32_t GammaEndRed = 255, GammaEndGreen = 255, GammaEndBlue = 255;
    std::int32_t GammaStartBlue = 255, GammaStartRed = 255, GammaStartGreen = 255;
    std::uint8_t GammaStyle = gsNone;
    TColor DesktopColor = 0;
    std::string Category;

    // For an item that is in a list. ThumbnailFileName gives it a number when it has none (a stale
    // file of that number is deleted).
    std::string ThumbnailFileName();
    void DeleteThumbnailFile();
    void FreeThumbnail() { Thumbnail.reset(); }
    int IndexInList() const;
    bool StartTintIsGrey() const;
    bool EndTintIsGrey() const;
    void SetDesktopColor(TColor color) { DesktopColor = color; }

    // The list file's line, without its line end.
    std::string SaveToLine() const;
    // Throws EConvertError; the item is then in an undefined state.
    void LoadFromLine(std::string_view line);
};

class TMuWallpaperList
{
public:
    // Three-way comparison of two texts as the user's locale orders them.
    using TCompare = std::function<int(const std::string&, const std::string&)>;

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
    int IndexOf(const TMuWallpaper* item) const;
    // The first item with exactly this file name, -1 when there is none.
    int IndexOfFileName(const std::string& fileName) const;
    bool ContainsFileName(const std::string& fileName) const; // does not walk the list
    void Clear();

    std::int32_t NextThumbnailNumber() const;
    // Throws EFileError when the folder cannot be made.
    void SetThumbnailFolder(std::string_view path);
    void ForgetThumbnail(const std::string& fileName);
    void TrimThumbnails(int count);
    void FreeAllThumbnails();

    // Columns: 0 title, 1 file name, 2 folder, 3 category then title. Stable.
    void Sort(int column, bool ascending, const TCompare& compare);

    // Both throw EFileError. LoadFromFile takes a missing file for an empty list. It throws
    // EListLineError at the first bad line; the items before it are then in the list, and the
    // caller must call KeepUnreadableFile before the file is written again.
    void SaveToFile(const std::string& path) const;
    void LoadFromFile(const std::string& path);

private:
    friend class TMuWallpaper;
    void AssignThumbnailNumber(TMuWallpaper& item);
    // After the item was taken out of m_items.
    void Release(TMuWallpaper& item);

    std::vector<std::unique_ptr<TMuWallpaper>> m_items;
    // The keys are the items' own file names.
    std::unordered_multimap<std::string_view, TMuWallpaper*> m_byFileName;
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
