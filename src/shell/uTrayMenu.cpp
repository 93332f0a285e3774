#include "uTrayMenu.h"

#include "uText.h"

#include <unordered_set>

namespace murala
{

namespace
{

constexpr int LongestMenu = 100;
// The shell lets a docked task bar overlap the screen.
constexpr int DockOverlap = 2;
constexpr int MenuOffset = 8; // to the left of the cursor

// Without an access key. Some panels have a text of their own for an empty caption, and the toolkit
// takes it for a mistake.
std::string PlainCaption(const std::string& text)
{
    return text.empty() ? " " : ReplaceAll(DisplayText(text), "&", "&&");
}

// In the order in which they first occur.
TMenuEntries CategoryEntries(const TMuWallpaperList& list, const TMuWallpaper* checked)
{
    TMenuEntries entries;
    std::unordered_set<std::string_view> known;
    for (int i = 0; i < list.Count(); ++i)
        if (const std::string& category = list.Item(i).Category; known.insert(category).second)
            entries.push_back({.Caption = PlainCaption(category),
                               .Target = TMenuBelow{TMenuBelow::Category, category},
                               .Checked = checked != nullptr && checked->Category == category});
    return entries;
}

} // namespace

TMenuEntries WallpaperEntries(const TMuWallpaperList& list, const TMuWallpaper* current,
                              const TMenuBelow& menu, const TWallpaperMenuOptions& options)
{
    const bool isFlat = menu.Kind == TMenuBelow::Wallpapers;
    if (isFlat && options.ByCategory)
        return CategoryEntries(list, options.ChecksMenus ? current : nullptr);
    TMenuEntries entries;
    int place = -menu.First;
    bool isCurrentBelow = false;
    for (int i = 0; i < list.Count(); ++i) {
        const TMuWallpaper& wallpaper = list.Item(i);
        if (!isFlat && wallpaper.Category != menu.Name)
            continue;
        if (place >= 0 && place < LongestMenu)
            entries.push_back(
                {.Caption = PlainCaption(wallpaper.Title),
                 .Target = TMenuWallpaper{wallpaper.Id()},
                 .Checked = &wallpaper == current,
                 .BarBreak = options.Rows > 0 && place > 0 && place % options.Rows == 0});
        isCurrentBelow = isCurrentBelow || (place >= LongestMenu && &wallpaper == current);
        ++place;
    }
    if (place > LongestMenu) {
        TMenuBelow more = menu;
        more.First += LongestMenu;
        entries.push_back({});
        entries.push_back({.Caption = "More...",
                           .Target = more,
                           .Checked = options.ChecksMenus && isCurrentBelow});
    }
    return entries;
}

TTaskBarEdge TaskBarEdge(const TRect& taskBar, TSize screen)
{
    const bool isAtBottom = taskBar.Bottom == screen.Height + DockOverlap;
    const bool isAtTop = taskBar.Top == -DockOverlap;
    if (isAtBottom != isAtTop)
        return isAtBottom ? TTaskBarEdge::Bottom : TTaskBarEdge::Top;
    if (taskBar.Left == -DockOverlap)
        return TTaskBarEdge::Left;
    return taskBar.Right == screen.Width + DockOverlap ? TTaskBarEdge::Right : TTaskBarEdge::None;
}

int MenuHeight(const TMenuEntries& menu, const TMenuMetrics& metrics)
{
    int height = 2 * metrics.BorderHeight;
    for (const TMenuEntry& entry : menu)
        height += entry.IsSeparator() ? metrics.SeparatorHeight : metrics.ItemHeight;
    return height;
}

TPoint MenuPlace(TPoint cursor, const std::optional<TRect>& taskBar, TSize screen, int menuHeight)
{
    const int x = cursor.X - MenuOffset;
    switch (taskBar ? TaskBarEdge(*taskBar, screen) : TTaskBarEdge::None) {
    case TTaskBarEdge::Top:
        return {x, taskBar->Bottom};
    case TTaskBarEdge::Bottom:
        return {x, taskBar->Top - menuHeight};
    default:
        return {x, cursor.Y};
    }
}

} // namespace murala
