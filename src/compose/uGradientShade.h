// Painting a gradient between two colours, in bands, and its file.
#pragma once

#include "uBitmap.h"

#include <string>
#include <vector>

namespace murala
{

// As the gradient editor numbers them.
enum class TGradientDirection {
    Vertical = 2,   // the colour changes from the top down
    Horizontal = 3, // from the left to the right
};

inline constexpr int GradientColorCount = 256;

// One band along the gradient: from Start up to, but not with, End; in pixels.
struct TGradientBand {
    int Start, End;
    TColor Color;
};

class TGradientShade
{
public:
    TGradientShade(TColor start, TColor end) : m_start(start), m_end(end) {}

    // At `t` from 0, the start colour, to 1, the end colour; rounded half to even.
    TColor ColorAt(long double t) const;

    // At most GradientColorCount bands of equal width; each has the colour of its right-hand edge,
    // the last one the end colour exactly. None for an extent below 1.
    std::vector<TGradientBand> Bands(int extent) const;

    // Over the whole bitmap.
    void Paint(TBitmap& bitmap, TGradientDirection direction) const;

private:
    TColor m_start, m_end;
};

// The gradient as a strip, one pixel thin and as long as the screen.
TBitmap GradientStrip(const TGradientShade& shade, TGradientDirection direction, TSize screen);

// Saves the strip as "GradientBitmap" + n + ".bmp" in the folder, n being the smallest number from
// 0 on that is free, and gives the file's path. Throws EFileError; no half file is left then.
std::string SaveGradient(const TBitmap& strip, const std::string& folder);

} // namespace murala
