// The items of some rows.
#pragma once

#include "uListeners.h"

namespace murala
{

// The items stand in the order of the rows.
template<typename TRows>
TItems ItemsAt(const TMuWallpaperList& list, const TRows& rows)
{
    TItems items;
    for (const int row : rows)
        items.push_back(&list.Item(row));
    return items;
}

} // namespace murala
