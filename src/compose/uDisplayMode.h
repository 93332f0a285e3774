// The table of display modes: where each pixel of the desktop picture comes from, and which mode
// may be used for which picture.
#pragma once

#include "uGeometry.h"
#include "uWallpaper.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace murala
{

// Half away from zero, single precision: the limits.
std::int64_t RoundHalfAway(float value);
// Half to even, extended precision: the geometry.
std::int64_t RoundHalfEven(long double value);

// For every column and every row of the target the column and row of the source that it shows;
// Background where it shows the background colour. All modes are made of these two maps, so a
// picture is composed without any copy of the whole source.
inline constexpr int Background = -1;
struct TDrawMap {
    std::vector<int> Columns;
    std::vector<int> Rows;
};

// Repeats the source from the top-left corner.
TDrawMap TileDraw(TSize source, TSize target);
// The source in the middle of the target; a larger source is cut evenly on both sides.
TDrawMap CenterDraw(TSize source, TSize target);
// Nearest neighbour: target position i shows source position floor(i * source / target).
TDrawMap StretchDraw(TSize source, TSize target);
// Repeats a block of twice the source's size: the source, mirrored to the right, downwards and both
// ways.
TDrawMap MirrorTileDraw(TSize source, TSize target);

// A picture that a mode refuses, because it would become too large.
struct TModeLimit {
    bool (*IsExceeded)(TSize image, TSize screen); // null: the mode takes every picture
    std::string_view Message;
    TDisplayMode Instead; // may be refused by its own limit, which stands further down in the table
    // In the cycle the mode is passed over for such a picture, instead of being left for Instead.
    bool IsPassedOver = false;
};

struct TDisplayModeRow {
    TDisplayMode Mode;
    std::string_view Text;
    std::string_view Action; // the name of the one that sets the mode
    TDrawMap (*Map)(TSize source, TSize screen);
    bool IsTiledByDesktop; // no mode needs that: every picture is as large as the screen
    TModeLimit Limit;
};

// In the order of their values, which is that of the cycle.
std::span<const TDisplayModeRow> DisplayModes();
// Null for a value that is none of the modes.
const TDisplayModeRow* FindDisplayMode(TDisplayMode mode);

// The whole mode. An unknown mode gives the source at its own size.
TDrawMap DisplayModeMap(TDisplayMode mode, TSize source, TSize screen);

inline constexpr std::string_view TooLargeForMirror =
    "This image is too large to use mirror tiled mode.";
inline constexpr std::string_view TooTallForFit =
    "This image is too tall to use fit-horizonal mode.";
inline constexpr std::string_view TooWideForFit =
    "This image is too wide to use fit-vertical mode.";
// Changes `mode` to one that may be used, with one message for every step taken. Nothing limits an
// image of unknown size (0 x 0), here and below.
std::vector<std::string_view> CheckDisplayMode(TDisplayMode& mode, TSize image, TSize screen);
// Whether the check needs the size of the image.
bool HasLimit(TDisplayMode mode);

// The mode that follows in the cycle for this picture; limits pass modes over silently.
TDisplayMode NextDisplayMode(TDisplayMode mode, TSize image, TSize screen);

} // namespace murala
