// Draws an example of the icon box for its dialog.
#pragma once

#include "uBitmap.h"

namespace murala
{

// A small desktop of 160 x 160 pixels with some icons and the icon box around them.
TBitmap IconBoxExample(bool onlyIcons);

} // namespace murala
