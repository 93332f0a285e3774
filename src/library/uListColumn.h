// The columns of the wallpaper list.
#pragma once

#include "uWallpaper.h"

#include <string>
#include <string_view>

namespace murala
{

struct TListColumnInfo {
    std::string_view Caption;
    int Width; // of a new window, in units of 1/96 inch
    std::string (*Text)(const TMuWallpaper& item);
};
extern const TListColumnInfo ListColumns[ListColumnCount];

// Empty when there is no such column.
std::string ColumnText(TListColumn column, const TMuWallpaper& item);

} // namespace murala
