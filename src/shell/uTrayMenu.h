// The wallpapers as entries of the tray's menu, in one level or by category, and where the menu
// opens.
#pragma once

#include "uGeometry.h"
#include "uTrayIcon.h"
#include "uWallpaper.h"

#include <optional>

namespace murala
{

struct TWallpaperMenuOptions {
    bool ByCategory = true;
    int Rows = 30; // entries that fit into a column on the screen
    // Whether the menus that lead to the current wallpaper are checked, too.
    bool ChecksMenus = true;
};

// What stands below "Wallpaper", a category or a "More...": at most a hundred wallpapers, then
// "More..." with the others. `current` may be null.
TMenuEntries WallpaperEntries(const TMuWallpaperList& list, const TMuWallpaper* current,
                              const TMenuBelow& menu, const TWallpaperMenuOptions& options);

enum class TTaskBarEdge { None, Left, Top, Right, Bottom };
TTaskBarEdge TaskBarEdge(const TRect& taskBar, TSize screen);

int MenuHeight(const TMenuEntries& menu, const TMenuMetrics& metrics);
// The top-left corner of a menu that is asked for at the cursor. `taskBar` is empty where it cannot
// be located.
TPoint MenuPlace(TPoint cursor, const std::optional<TRect>& taskBar, TSize screen, int menuHeight);

} // namespace murala
