// Sizes and rectangles, in pixels.
#pragma once

namespace murala
{

struct TSize {
    int Width = 0;
    int Height = 0;
    friend bool operator==(const TSize&, const TSize&) = default;
};

// Right and bottom are exclusive.
struct TRect {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
    friend bool operator==(const TRect&, const TRect&) = default;
};

} // namespace murala
