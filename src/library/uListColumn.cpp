#include "uListColumn.h"

#include "uPath.h"

namespace murala
{

constexpr TListColumnInfo ListColumns[] = {
    {"Title", 160, [](const TMuWallpaper& item) { return item.Title; }},
    {"Filename", 158, [](const TMuWallpaper& item) { return FileNamePart(item.FileName()); }},
    {"Path", 158, [](const TMuWallpaper& item) { return FolderPart(item.FileName()); }},
    {"Category", 120, [](const TMuWallpaper& item) { return item.Category; }},
};
static_assert(std::size(ListColumns) == ListColumnCount, "one row for every column");

std::string ColumnText(TListColumn column, const TMuWallpaper& item)
{
    return column >= lcTitle && column < ListColumnCount ? ListColumns[column].Text(item)
                                                         : std::string();
}

} // namespace murala
