// The rules of installing a wallpaper, above the platform's calls.
#pragma once

#include "uColorText.h"
#include "uDesktop.h"

namespace murala
{

// Mode 0 (tile) stores "1", mode 1 (do not tile) stores "0", any other mode stores nothing.
void WriteTileWallpaper(TDesktop& desktop, int mode);

// Stores the colour's text, then sets the colour.
void ApplyDesktopColor(TDesktop& desktop, TColor color);

} // namespace murala
