// The desktop itself: what wallpaper it shows, on how large a screen, in which colours.
#pragma once

#include "uBitmap.h"

#include <memory>
#include <string>

namespace murala
{

// One platform call each.
class TDesktop
{
public:
    virtual ~TDesktop() = default;

    // The primary screen in pixels.
    virtual TSize ScreenSize() = 0;
    // Colours of more than 256 kinds; otherwise pictures are written with 8 bits a pixel.
    virtual int ScreenBitsPerPixel() = 0;

    // Installs a BMP file (full path) as the wallpaper. Whether it worked.
    virtual bool SetWallpaperFile(const std::string& path) = 0;

    // Stores the tile flag ("TileWallpaper" of "Control Panel\desktop"): "1" or "0". Skipped
    // silently where it cannot be stored.
    virtual void StoreTileFlag(const std::string& text) = 0;

    // Stores the desktop colour as text ("Background" in section "colors" of "win.ini").
    virtual void StoreDesktopColorText(const std::string& text) = 0;
    // The colour around and behind the wallpaper, at once.
    virtual void SetDesktopColor(TColor color) = 0;
    virtual TColor DesktopColor() = 0;
};

// Defined once per home. `programFolder` (with its trailing divider) is where a home without a
// registry keeps its own store.
std::unique_ptr<TDesktop> NewDesktop(const std::string& programFolder);

} // namespace murala
