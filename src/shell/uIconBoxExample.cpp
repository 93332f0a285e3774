#include "uIconBoxExample.h"

#include "uGradientShade.h"
#include "uIconBox.h"

#include <algorithm>
#include <cmath>

namespace murala
{

namespace
{

constexpr int Side = 160;
constexpr int IconSide = 24, LabelWidth = 34, LabelHeight = 7; // of an example icon

struct TExampleIcon {
    int Left, Top;
    TColor Color;
};
constexpr TExampleIcon Icons[] = {
    {22, 18, 0x3C8CF0}, {22, 64, 0x50B45A}, {22, 110, 0xC8823C}, {76, 18, 0x5A5ADC}};

void FillRect(TBitmap& picture, const TRect& rect, TColor color)
{
    for (int y = rect.Top; y < rect.Bottom; ++y)
        std::fill_n(picture.Row(y) + rect.Left, rect.Width(), ColorToPixel(color));
}

// Sky above two hills.
TBitmap Landscape()
{
    TBitmap picture(Side, Side);
    TGradientShade(0xA06428, 0xF0D2A0).Paint(picture, TGradientDirection::Vertical);
    for (int x = 0; x < Side; ++x) {
        const int far = 96 - static_cast<int>(22 * std::sin(x / 38.0));
        const int near = 124 + static_cast<int>(16 * std::sin(x / 27.0 + 1));
        FillRect(picture, {x, far, x + 1, Side}, 0x4F7A46);
        FillRect(picture, {x, near, x + 1, Side}, 0x2C5A2E);
    }
    return picture;
}

TRect IconRect(const TExampleIcon& icon)
{
    return {icon.Left, icon.Top, icon.Left + IconSide, icon.Top + IconSide};
}

TRect LabelRect(const TExampleIcon& icon)
{
    const int left = icon.Left - (LabelWidth - IconSide) / 2, top = icon.Top + IconSide + 3;
    return {left, top, left + LabelWidth, top + LabelHeight};
}

void DrawIcon(TBitmap& picture, const TExampleIcon& icon)
{
    const TRect all = IconRect(icon), label = LabelRect(icon);
    FillRect(picture, {all.Left + 3, all.Top + 1, all.Right - 3, all.Bottom - 1}, 0xFFFFFF);
    FillRect(picture, {all.Left + 5, all.Top + 3, all.Right - 5, all.Top + 12}, icon.Color);
    for (const int y : {14, 17, 20})
        FillRect(picture, {all.Left + 5, all.Top + y, all.Right - 5, all.Top + y + 1}, 0xA0A0A0);
    // Dashes stand for the letters.
    for (int x = label.Left + 3; x + 4 <= label.Right - 2; x += 6)
        FillRect(picture, {x, label.Top + 2, x + 4, label.Bottom - 2}, 0x202020);
}

} // namespace

TBitmap IconBoxExample(bool onlyIcons)
{
    TIconBoxSettings settings;
    settings.OnlyIcons = onlyIcons;
    std::vector<TRect> region;
    for (const TExampleIcon& icon : Icons) {
        region.push_back(IconRect(icon));
        region.push_back(LabelRect(icon));
    }
    TBitmap picture = Landscape();
    DrawIconBox(picture, settings, region);
    for (const TExampleIcon& icon : Icons)
        DrawIcon(picture, icon);
    return picture;
}

} // namespace murala
