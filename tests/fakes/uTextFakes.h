// Text whose measures are known: every byte is as wide as half the font's height, and is drawn as a
// filled box.
#pragma once

#include "uTextDrawing.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace murala
{

struct TFixedText : TTextDrawing {
    struct TDrawn {
        std::string Text;
        int X, Y;
        std::string FontName;
        TColor Color;
    };
    std::vector<TDrawn> Drawn;
    bool Fails = false; // as where there is no font at all

    static TSize SizeOf(const TMuFont& font, const std::string& text)
    {
        const int height = FontPixels(font.Size);
        return {static_cast<int>(text.size()) * ((height + 1) / 2), height};
    }

    TSize Measure(const TMuFont& font, const std::string& text) override
    {
        if (Fails)
            throw std::runtime_error("Text cannot be drawn.");
        return SizeOf(font, text);
    }

    void Draw(TBitmap& bitmap, const TRect& clip, int x, int y, const TMuFont& font, TColor color,
              const std::string& text) override
    {
        Drawn.push_back({text, x, y, font.Name, color});
        const TSize size = SizeOf(font, text);
        const TRect part = VisiblePart({x, y, x + size.Width, y + size.Height}, clip, bitmap);
        for (int row = part.Top; row < part.Bottom; ++row)
            std::fill_n(bitmap.Row(row) + part.Left, part.Width(), ColorToPixel(color));
    }
};

} // namespace murala
