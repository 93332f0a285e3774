#include "uGradientShade.h"

#include "uDisplayMode.h"
#include "uImageFile.h"
#include "uPath.h"

#include <algorithm>

namespace murala
{

TColor TGradientShade::ColorAt(long double t) const
{
    TColor color = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto channel = [=](TColor of) { return static_cast<int>((of >> shift) & 0xFFU); };
        const std::int64_t value =
            RoundHalfEven(channel(m_end) * t + (1.0L - t) * channel(m_start));
        color |= static_cast<TColor>(value) << shift;
    }
    return color;
}

std::vector<TGradientBand> TGradientShade::Bands(int extent) const
{
    std::vector<TGradientBand> bands;
    int last = 0;
    int start = 0;
    for (int i = 0; i <= extent && extent > 0; ++i) {
        const auto number = static_cast<int>(std::int64_t{GradientColorCount} * i / extent);
        const int band = std::min(number, GradientColorCount - 1);
        if (band == last && i != extent)
            continue;
        last = band;
        bands.push_back({start, i, ColorAt(static_cast<long double>(i) / extent)});
        start = i;
    }
    return bands;
}

void TGradientShade::Paint(TBitmap& bitmap, TGradientDirection direction) const
{
    const bool isHorizontal = direction == TGradientDirection::Horizontal;
    for (const TGradientBand& band : Bands(isHorizontal ? bitmap.Width() : bitmap.Height())) {
        const int left = isHorizontal ? band.Start : 0;
        const int top = isHorizontal ? 0 : band.Start;
        const int width = isHorizontal ? band.End - band.Start : bitmap.Width();
        const int bottom = isHorizontal ? bitmap.Height() : band.End;
        for (int y = top; y < bottom; ++y)
            std::fill_n(bitmap.Row(y) + left, width, ColorToPixel(band.Color));
    }
}

TBitmap GradientStrip(const TGradientShade& shade, TGradientDirection direction, TSize screen)
{
    TBitmap strip = direction == TGradientDirection::Horizontal ? TBitmap(screen.Width, 1)
                                                                : TBitmap(1, screen.Height);
    shade.Paint(strip, direction);
    return strip;
}

std::string SaveGradient(const TBitmap& strip, const std::string& folder)
{
    for (int number = 0;; ++number) {
        std::string file = JoinPath(folder, "GradientBitmap" + std::to_string(number) + ".bmp");
        std::error_code error;
        // A folder or a broken link of that name counts as taken, too.
        if (std::filesystem::exists(std::filesystem::symlink_status(NativePath(file), error)))
            continue;
        SaveBitmapFile(strip, file);
        return file;
    }
}

} // namespace murala
