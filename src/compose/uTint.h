// The tint: every channel darkened or lightened, evenly or along a ramp.
#pragma once

#include "uBitmap.h"
#include "uWallpaper.h"

namespace murala
{

// value < 0: c * (value + 256) / 256; else c * (255 - value) / 255 + value; both divisions floor.
std::uint8_t TintChannel(std::uint8_t channel, int value);

// By the item's GammaStyle; style 0 and unknown styles change nothing. The unused byte of a pixel
// is never touched.
void ApplyTint(TBitmap& bitmap, const TMuWallpaper& item);

void TintSolid(TBitmap& bitmap, TTint tint);
// Column x has start * (1 - x / width) + end * (x / width), rounded half to even.
void TintHorizontal(TBitmap& bitmap, TTint start, TTint end);
void TintVertical(TBitmap& bitmap, TTint start, TTint end);

// The part of the rectangle that lies on the bitmap.
void TintRectangle(TBitmap& bitmap, const TRect& rectangle, TTint tint);

// The tint with another value in one channel or in all of them.
TTint WithChannel(TTint tint, TChannel channel, int value);

} // namespace murala
