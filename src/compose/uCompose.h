// The desktop picture made from one wallpaper.
#pragma once

#include "uBitmap.h"
#include "uDisplayMode.h"
#include "uImageFile.h"
#include "uTint.h"

#include <functional>
#include <string>

namespace murala
{

// "MuralaWallpaper.bmp", with the number behind the name from 2 on, then what the screens are
// called.
std::string WallpaperBitmapName(int desktop, const std::string& screens = "");

// Draws on the composed picture before it is saved or shown: the tint, then the add-ons.
using TBeforeSave = std::function<void(TBitmap&)>;

// The source in the item's display mode on its desktop colour; exactly as large as the screen (as
// the source when the mode is none of the six). No tint. Throws EInvalidImage when the source has
// no pixels.
TBitmap ComposeDisplayMode(TImageReader& source, const TMuWallpaper& item, TSize screen);

// The whole picture: display mode, then the item's tint, then `addOns` (may be empty).
TBitmap ComposePicture(TImageReader& source, const TMuWallpaper& item, TSize screen,
                       const TBeforeSave& addOns);

// The bitmap's content stretched to a new size, nearest neighbour.
void ResizeBitmap(TBitmap& bitmap, int width, int height);

// Sizes the bitmap to the screen and fills it.
void FillBackground(TBitmap& bitmap, TSize screen, TColor color);

// Writes the picture, under "\temp.bmp" (in the user's own temporary folder) when `target` is empty
// or cannot be written. Returns the name it was written under. Throws EFileError when neither can
// be.
std::string SaveWallpaper(const TBitmap& bitmap, const std::string& target,
                          int screenBitsPerPixel = 32);

} // namespace murala
