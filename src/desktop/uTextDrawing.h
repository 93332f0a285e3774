// Measuring text and drawing it onto a bitmap. It needs no window and no display.
#pragma once

#include "uBitmap.h"
#include "uFont.h"

#include <memory>
#include <string>

namespace murala
{

class TTextDrawing
{
public:
    virtual ~TTextDrawing() = default;

    // In pixels: the width of the text and the height of the font's lines, which is the same for
    // every text.
    virtual TSize Measure(const TMuFont& font, const std::string& text) = 0;

    // One line, its top-left corner at (x, y), with nothing behind the letters and without regard
    // to the font's own colour. Only pixels of the bitmap that lie in `clip` change.
    virtual void Draw(TBitmap& bitmap, const TRect& clip, int x, int y, const TMuFont& font,
                      TColor color, const std::string& text) = 0;
};

// A font that the machine lacks is replaced by its relative of the same measures. Throws
// std::runtime_error, then or when it is used, where text cannot be drawn.
std::unique_ptr<TTextDrawing> NewTextDrawing();

// The height that stands for so many points, by 96 dots an inch whatever the screen's scaling: one
// picture looks the same on every road. What is no size a font could have is brought near to one.
int FontPixels(int points);

// The part of the bitmap that the text may touch.
TRect TextPart(TTextDrawing& drawing, const TMuFont& font, const std::string& text, int x, int y,
               const TRect& clip, const TBitmap& bitmap);

// The part of `area` that lies in `clip` and on the bitmap; empty when there is none.
TRect VisiblePart(const TRect& area, const TRect& clip, const TBitmap& bitmap);

} // namespace murala
