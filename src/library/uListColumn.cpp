#include "uListColumn.h"

#include "uPath.h"

namespace murala
{

const TListColumnInfo ListColumns[ListColumnCount] = {
    {"Title", 160, [](const TMuWallpaper& item) { return item.Title; }},
    {"Filename", 158, [](const TMuWallpaper& item) { return FileNamePart(item.FileName()); }},
    {"Path", 158, [](const TMuWallpaper& item) { return FolderPart(item.FileName()); }},
    {"Category", 120, [](const TMuWallpaper& item) { return item.Category; }},
};

std::string ColumnText(TListColumn column, const TMuWallpaper& item)
{
    return column >= lcTitle && column < ListColumnCount ? ListColumns[column].Text(item)
                                                         : std::string();
}

} // namespace murala
