// Work on many items that may take longer than a moment.
#pragma once

#include "uCore.h"

#include <functional>
#include <string_view>

namespace murala
{

// Does `each` with one item after the other, shows how far that is and lets the user end it between
// two of them. How many were done. `what` stands before the item's title, e.g. "Renaming
// Wallpaper".
std::size_t WorkOn(TCore& core, const TItems& items, std::string_view what,
                   const std::function<void(TMuWallpaper&)>& each);

} // namespace murala
