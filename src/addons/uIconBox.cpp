#include "uIconBox.h"

#include "uTint.h"

#include <algorithm>
#include <set>

namespace murala
{

namespace
{

constexpr int Margin = 5;

bool IsEmpty(const TRect& rect)
{
    return rect.Right <= rect.Left || rect.Bottom <= rect.Top;
}

TRect Common(const TRect& a, const TRect& b)
{
    return {std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right),
            std::min(a.Bottom, b.Bottom)};
}

TRect Bounds(const std::vector<TRect>& region)
{
    if (region.empty())
        return {};
    TRect bounds = region.front();
    for (const TRect& rect : region)
        bounds = {std::min(bounds.Left, rect.Left), std::min(bounds.Top, rect.Top),
                  std::max(bounds.Right, rect.Right), std::max(bounds.Bottom, rect.Bottom)};
    return bounds;
}

// Appends the areas between `top` and `bottom`, where no rectangle begins or ends, and joins those
// that touch.
void AppendBand(std::vector<TRect>& region, int top, int bottom, std::vector<TRect> crossing)
{
    std::ranges::sort(crossing, {}, &TRect::Left);
    const std::size_t first = region.size();
    for (const TRect& rect : crossing) {
        if (region.size() > first && rect.Left <= region.back().Right)
            region.back().Right = std::max(region.back().Right, rect.Right);
        else
            region.push_back({rect.Left, top, rect.Right, bottom});
    }
}

// The same area as rectangles that do not overlap, because a pixel must be tinted only once.
std::vector<TRect> Disjoint(const std::vector<TRect>& region)
{
    std::set<int> edges;
    for (const TRect& rect : region)
        edges.insert({rect.Top, rect.Bottom});
    std::vector<TRect> disjoint;
    for (auto edge = edges.begin(); edge != edges.end() && std::next(edge) != edges.end(); ++edge) {
        std::vector<TRect> crossing;
        std::ranges::copy_if(region, std::back_inserter(crossing), [=](const TRect& rect) {
            return rect.Top <= *edge && rect.Bottom > *edge;
        });
        AppendBand(disjoint, *edge, *std::next(edge), std::move(crossing));
    }
    return disjoint;
}

void Fill(TBitmap& picture, const TRect& area, TColor color)
{
    const TRect rect = Common(area, {0, 0, picture.Width(), picture.Height()});
    for (int y = rect.Top; y < rect.Bottom && !IsEmpty(rect); ++y)
        std::fill_n(picture.Row(y) + rect.Left, rect.Width(), ColorToPixel(color));
}

} // namespace

void DrawIconBox(TBitmap& picture, const TIconBoxSettings& settings,
                 const std::vector<TRect>& region)
{
    std::vector<TRect> icons = region;
    std::erase_if(icons, IsEmpty);
    const TRect bounds = Bounds(icons);
    const TRect box{bounds.Left - Margin, bounds.Top - Margin, bounds.Right + Margin,
                    bounds.Bottom + Margin};
    const std::vector<TRect> clip = settings.OnlyIcons ? Disjoint(icons) : std::vector<TRect>{box};
    const int gamma = std::clamp(settings.Gamma, -256, 255);
    for (const TRect& part : clip)
        TintRectangle(picture, part, {gamma, gamma, gamma});
    if (!settings.Border)
        return;
    const TRect lines[] = {{box.Left, box.Top, box.Right, box.Top + 1},
                           {box.Left, box.Bottom - 1, box.Right, box.Bottom},
                           {box.Left, box.Top, box.Left + 1, box.Bottom},
                           {box.Right - 1, box.Top, box.Right, box.Bottom}};
    for (const TRect& line : lines)
        for (const TRect& part : clip)
            Fill(picture, Common(line, part), settings.BorderColor);
}

} // namespace murala
