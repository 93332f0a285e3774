// An example of what the icon box looks like.
#pragma once

#include "uBitmap.h"

namespace murala
{

// A small desktop of 160 x 160 pixels with some icons, drawn with the icon box itself.
TBitmap IconBoxExample(bool onlyIcons);

} // namespace murala
