// The tray's menus as data: every wallpaper in one level or by category, and where they open.
#pragma once

#include "uGeometry.h"
#include "uTrayIcon.h"
#include "uWallpaper.h"

#include <optional>
#include <span>

namespace murala
{

// Of the menus that take what is too much for the one above.
inline constexpr std::string_view MoreMenuName = "MoreCategoryMenuItem";

struct TWallpaperMenuOptions {
    bool ByCategory = true;
    int Rows = 30; // entries that fit into a column on the screen
};

// "Wallpaper1", with the entry of the item `current` checked, -1 for none; then what leads to it is
// checked, but not the menu itself.
TMenuItem NewWallpaperMenu(const TMuWallpaperList& list, int current,
                           const TWallpaperMenuOptions& options);
// The separator behind the list, and the entries that the menu is to end with.
void AppendToWallpaperMenu(TMenuItem& menu, std::span<const TMenuItem> items);

// The index in the hint of a wallpaper's entry, or in its name; -1 for any other entry.
int WallpaperIndexOf(const TMenuItem& item);
int WallpaperIndexOf(std::string_view name);
// After another wallpaper became the current one: its entry is checked, and no other. Entries of
// actions are left as they are.
void UpdateTrayChecks(TMenuItem& menu, int current);

enum class TTaskBarEdge { None, Left, Top, Right, Bottom };
TTaskBarEdge TaskBarEdge(const TRect& taskBar, TSize screen);

int MenuHeight(const TMenuItem& menu, const TMenuMetrics& metrics);
// The top-left corner of a menu that is asked for at the cursor. `taskBar` is empty where it cannot
// be located.
TPoint MenuPlace(TPoint cursor, const std::optional<TRect>& taskBar, TSize screen, int menuHeight);

} // namespace murala
