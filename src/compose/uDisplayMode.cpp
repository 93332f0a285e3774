#include "uDisplayMode.h"

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

struct TLimit {
    TDisplayMode Mode;
    bool (*IsExceeded)(TSize image, TSize screen);
    std::string_view Message;
    TDisplayMode Instead;
};

bool IsTooLargeForMirror(TSize image, TSize)
{
    return image.Width > MaxMirrorWidth;
}

constexpr TLimit MirrorLimit = {dmMirrorTiled, IsTooLargeForMirror, TooLargeForMirror,
                                dmFitHorizontally};
// In the order of the check: a mode that one limit chooses may be refused by the next.
constexpr TLimit FitLimits[] = {
    {dmFitHorizontally,
     [](TSize image, TSize screen) { return ExceedsFit(image.Height, image.Width, screen.Width); },
     TooTallForFit, dmFitVertically},
    {dmFitVertically,
     [](TSize image, TSize screen) { return ExceedsFit(image.Width, image.Height, screen.Height); },
     TooWideForFit, dmStretched},
};

// The message when the limit has moved the mode on, nothing otherwise.
std::string_view Check(const TLimit& limit, TDisplayMode& mode, TSize image, TSize screen)
{
    const bool hasPixels = image.Width > 0 && image.Height > 0;
    if (mode != limit.Mode || !hasPixels || !limit.IsExceeded(image, screen))
        return {};
    mode = limit.Instead;
    return limit.Message;
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

TDrawMap DisplayModeMap(TDisplayMode mode, TSize source, TSize screen)
{
    using TDraw = TDrawMap (*)(TSize source, TSize target);
    constexpr TDraw draws[] = {TileDraw,       CenterDraw,      StretchDraw,
                               MirrorTileDraw, FitHorizontally, FitVertically};
    return mode < std::size(draws) ? draws[mode](source, screen) : CenterDraw(source, source);
}

std::vector<std::string_view> CheckDisplayMode(TDisplayMode& mode, TSize image, TSize screen)
{
    std::vector<std::string_view> messages;
    for (const TLimit& limit : {MirrorLimit, FitLimits[0], FitLimits[1]})
        if (const auto message = Check(limit, mode, image, screen); !message.empty())
            messages.push_back(message);
    return messages;
}

TDisplayMode NextDisplayMode(TDisplayMode mode, TSize image, TSize screen)
{
    if (mode == dmStretched && IsTooLargeForMirror(image, screen))
        mode = dmMirrorTiled;
    for (const TLimit& limit : FitLimits)
        Check(limit, mode, image, screen);
    return static_cast<TDisplayMode>(mode < dmFitVertically ? mode + 1 : dmTiled);
}

} // namespace murala
