#include "uIconLayout.h"

#include <algorithm>
#include <cmath>

namespace murala
{

namespace
{

constexpr int CharacterWidth = 9;    // rather too wide than too narrow
constexpr int FewestCharacters = 11; // the home folder's icon may be called "Someone's Home"
constexpr int LineHeight = 20;
constexpr int LabelGap = 6; // around the label
constexpr int XfceMargin = 16;

int CharacterCount(std::string_view text)
{
    return static_cast<int>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

bool Touch(const TRect& a, const TRect& b)
{
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

} // namespace

void AddIcon(TRects& area, const TIconLook& look, int middle, int top, std::string_view label)
{
    const int left = middle - look.IconSize / 2;
    const int bottom = top + look.IconSize;
    area.push_back({left, top, left + look.IconSize, bottom});
    const int length = CharacterWidth * CharacterCount(label);
    const int width = std::max(length, CharacterWidth * FewestCharacters);
    const int half = std::min(width, look.LabelWidth) / 2 + LabelGap;
    const int lines =
        std::clamp((length + look.LabelWidth - 1) / look.LabelWidth, 1, look.MostLines);
    area.push_back({middle - half, bottom, middle + half, bottom + LabelGap + lines * LineHeight});
}

TCells XfceCells(int begin, int length, double cell)
{
    const double space = length - 2 * XfceMargin;
    const double count = std::max(1.0, std::floor(space / cell));
    const double rest = std::max(0.0, space - count * cell);
    const double gap = count > 1 ? std::floor(rest / (count - 1)) : 0;
    return {begin + XfceMargin + (rest - gap * (count - 1)) / 2, cell + gap};
}

std::vector<TRect> FreeCells(const TRect& area, TSize cell, const TRects& taken, std::size_t count)
{
    std::vector<TRect> free;
    for (int x = area.Left; x + cell.Width <= area.Right; x += cell.Width)
        for (int y = area.Top; y + cell.Height <= area.Bottom && free.size() < count;
             y += cell.Height) {
            const TRect place{x, y, x + cell.Width, y + cell.Height};
            if (std::ranges::none_of(taken, [&](const TRect& each) { return Touch(each, place); }))
                free.push_back(place);
        }
    return free;
}

} // namespace murala
