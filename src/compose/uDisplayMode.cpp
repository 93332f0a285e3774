#include "uDisplayMode.h"

#include <algorithm>
#include <cmath>

namespace murala
{

namespace
{

constexpr int MaxMirrorWidth = 800;
constexpr std::int64_t MaxFitPixels = 1'920'000;

template<typename TSourceOf>
std::vector<int> Axis(int target, TSourceOf sourceOf)
{
    std::vector<int> positions(static_cast<std::size_t>(target));
    for (int i = 0; i < target; ++i)
        positions[static_cast<std::size_t>(i)] = sourceOf(i);
    return positions;
}

// One side of the source, stretched to `scaled`, in the middle of the target.
std::vector<int> CenteredAxis(int source, std::int64_t scaled, int target)
{
    const std::int64_t start = RoundHalfEven((target - scaled) / 2.0L);
    return Axis(target, [=](int i) {
        const std::int64_t position = i - start;
        const bool isInside = position >= 0 && position < scaled;
        return isInside ? static_cast<int>(position * source / scaled) : Background;
    });
}

std::vector<int> TiledAxis(int source, int target)
{
    return Axis(target, [=](int i) { return source > 0 ? i % source : Background; });
}

std::vector<int> MirroredAxis(int source, int target)
{
    std::vector<int> positions = TiledAxis(2 * source, target);
    for (int& position : positions)
        if (position >= source)
            position = 2 * source - 1 - position;
    return positions;
}

// The side that follows when the other one is scaled from `from` to `to`.
std::int64_t ScaledSide(int side, int from, int to)
{
    return RoundHalfEven(side * (static_cast<long double>(to) / from));
}

TDrawMap FitHorizontally(TSize source, TSize target)
{
    return {CenteredAxis(source.Width, target.Width, target.Width),
            CenteredAxis(source.Height, ScaledSide(source.Height, source.Width, target.Width),
                         target.Height)};
}

TDrawMap FitVertically(TSize source, TSize target)
{
    return {CenteredAxis(source.Width, ScaledSide(source.Width, source.Height, target.Height),
                         target.Width),
            CenteredAxis(source.Height, target.Height, target.Height)};
}

// Whether a picture whose one side becomes `to`, the other following, has too many pixels.
bool ExceedsFit(int side, int from, int to)
{
    const auto scaled = static_cast<float>(static_cast<long double>(side) / from * to);
    return RoundHalfAway(scaled) * to > MaxFitPixels;
}

bool IsTooLargeForMirror(TSize image, TSize)
{
    return image.Width > MaxMirrorWidth;
}

bool IsTooTallForFit(TSize image, TSize screen)
{
    return ExceedsFit(image.Height, image.Width, screen.Width);
}

bool IsTooWideForFit(TSize image, TSize screen)
{
    return ExceedsFit(image.Width, image.Height, screen.Height);
}

constexpr TModeLimit ForMirror{IsTooLargeForMirror, TooLargeForMirror, dmFitHorizontally, true};
constexpr TModeLimit ForWidth{IsTooTallForFit, TooTallForFit, dmFitVertically};
constexpr TModeLimit ForHeight{IsTooWideForFit, TooWideForFit, dmStretched};
constexpr const auto& Names = DisplayModeNames;
constexpr TDisplayModeRow Table[] = {
    {dmTiled, Names[0], "aDisplayTiled", TileDraw, false, {}},
    {dmCentered, Names[1], "aDisplayCentered", CenterDraw, false, {}},
    {dmStretched, Names[2], "aDisplayStretched", StretchDraw, false, {}},
    {dmMirrorTiled, Names[3], "aDisplayMirrorTiled", MirrorTileDraw, false, ForMirror},
    {dmFitHorizontally, Names[4], "aDisplayFitHorizontal", FitHorizontally, false, ForWidth},
    {dmFitVertically, Names[5], "aDisplayFitVertical", FitVertically, false, ForHeight},
};
static_assert(
    [value = 0U]() mutable {
        return std::ranges::all_of(Table, [&](const auto& row) { return row.Mode == value++; }) &&
               value == std::size(DisplayModeNames);
    }(),
    "one row for every mode, in the order of their values");

bool IsExceeded(const TModeLimit& limit, TSize image, TSize screen)
{
    return limit.IsExceeded != nullptr && image.Width > 0 && image.Height > 0 &&
           limit.IsExceeded(image, screen);
}

} // namespace

std::int64_t RoundHalfAway(float value)
{
    return std::llround(value);
}

std::int64_t RoundHalfEven(long double value)
{
    return std::llrint(value);
}

TDrawMap TileDraw(TSize source, TSize target)
{
    return {TiledAxis(source.Width, target.Width), TiledAxis(source.Height, target.Height)};
}

TDrawMap CenterDraw(TSize source, TSize target)
{
    return {CenteredAxis(source.Width, source.Width, target.Width),
            CenteredAxis(source.Height, source.Height, target.Height)};
}

TDrawMap StretchDraw(TSize source, TSize target)
{
    return {CenteredAxis(source.Width, target.Width, target.Width),
            CenteredAxis(source.Height, target.Height, target.Height)};
}

TDrawMap MirrorTileDraw(TSize source, TSize target)
{
    return {MirroredAxis(source.Width, target.Width), MirroredAxis(source.Height, target.Height)};
}

std::span<const TDisplayModeRow> DisplayModes()
{
    return Table;
}

const TDisplayModeRow* FindDisplayMode(TDisplayMode mode)
{
    return mode < std::size(Table) ? &Table[mode] : nullptr;
}

TDrawMap DisplayModeMap(TDisplayMode mode, TSize source, TSize screen)
{
    const TDisplayModeRow* row = FindDisplayMode(mode);
    return row != nullptr ? row->Map(source, screen) : CenterDraw(source, source);
}

std::vector<std::string_view> CheckDisplayMode(TDisplayMode& mode, TSize image, TSize screen)
{
    std::vector<std::string_view> messages;
    for (const auto& row : Table)
        if (mode == row.Mode && IsExceeded(row.Limit, image, screen)) {
            mode = row.Limit.Instead;
            messages.push_back(row.Limit.Message);
        }
    return messages;
}

bool HasLimit(TDisplayMode mode)
{
    const TDisplayModeRow* row = FindDisplayMode(mode);
    return row != nullptr && row->Limit.IsExceeded != nullptr;
}

TDisplayMode NextDisplayMode(TDisplayMode mode, TSize image, TSize screen)
{
    for (const auto& row : Table)
        if (row.Limit.IsPassedOver ? mode + 1 == row.Mode : mode == row.Mode)
            if (IsExceeded(row.Limit, image, screen))
                mode = row.Limit.IsPassedOver ? row.Mode : row.Limit.Instead;
    return static_cast<TDisplayMode>(mode + 1U < std::size(Table) ? mode + 1 : dmTiled);
}

} // namespace murala
