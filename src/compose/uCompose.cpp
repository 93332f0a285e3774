#include "uCompose.h"

#include "uSafeFile.h"
#include "uTemporaryFolder.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace murala
{

namespace
{

constexpr TPixel ColorBits = 0xFFFFFF;

// The target's rows, sorted so that the source can be read from the top down.
std::vector<int> ReadingOrder(const std::vector<int>& rows)
{
    std::vector<int> order(rows.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&](int y) { return rows[static_cast<std::size_t>(y)]; });
    return order;
}

// A row of the source. The background colour lies in front of it, at index Background (-1), so that
// gathering needs no test for it.
class TSourceRow
{
public:
    TSourceRow(int width, TPixel background) : m_pixels(static_cast<std::size_t>(width) + 1)
    {
        m_pixels.front() = background;
    }
    TPixel* Pixels() { return m_pixels.data() - Background; }

    void Gather(const std::vector<int>& columns, TPixel* target) const
    {
        const TPixel* pixels = m_pixels.data() - Background;
        std::ranges::transform(columns, target,
                               [=](int column) { return pixels[column] & ColorBits; });
    }

private:
    std::vector<TPixel> m_pixels;
};

// Reads the source once from the top down and leaves out the rows that the target does not show.
TBitmap Draw(TImageReader& source, const TDrawMap& map, TPixel background)
{
    const auto width = static_cast<int>(map.Columns.size());
    TBitmap target(width, static_cast<int>(map.Rows.size()));
    TSourceRow line(source.Size().Width, background);
    int present = Background;
    const TPixel* drawn = nullptr;
    for (const int y : ReadingOrder(map.Rows)) {
        const int needed = map.Rows[static_cast<std::size_t>(y)];
        if (needed == Background) {
            std::fill_n(target.Row(y), width, background);
        } else if (needed == present) {
            std::copy_n(drawn, width, target.Row(y));
        } else {
            source.ReadRow(needed, line.Pixels());
            line.Gather(map.Columns, target.Row(y));
            present = needed;
            drawn = target.Row(y);
        }
    }
    return target;
}

} // namespace

std::string WallpaperBitmapName(int desktop, const std::string& screens)
{
    return "MuralaWallpaper" + (desktop > 1 ? std::to_string(desktop) : "") + screens + ".bmp";
}

TBitmap ComposeDisplayMode(TImageReader& source, const TMuWallpaper& item, TSize screen)
{
    if (source.Size().Width < 1 || source.Size().Height < 1)
        throw EInvalidImage(item.FileName(), "the picture has no pixels");
    return Draw(source, DisplayModeMap(item.DisplayMode, source.Size(), screen),
                ColorToPixel(item.DesktopColor));
}

TBitmap ComposePicture(TImageReader& source, const TMuWallpaper& item, TSize screen,
                       const TBeforeSave& addOns)
{
    TBitmap bitmap = ComposeDisplayMode(source, item, screen);
    ApplyTint(bitmap, item);
    if (addOns)
        addOns(bitmap);
    return bitmap;
}

void ResizeBitmap(TBitmap& bitmap, int width, int height)
{
    bitmap = Draw(*ReadBitmap(bitmap), StretchDraw(bitmap.Size(), {width, height}), 0);
}

void FillBackground(TBitmap& bitmap, TSize screen, TColor color)
{
    bitmap = TBitmap(screen.Width, screen.Height);
    std::fill_n(bitmap.Row(0), static_cast<std::size_t>(screen.Width) * screen.Height,
                ColorToPixel(color));
}

std::string SaveWallpaper(const TBitmap& bitmap, const std::string& target, int screenBitsPerPixel)
{
    try {
        if (!target.empty()) {
            SaveBitmapFile(bitmap, target, screenBitsPerPixel);
            return target;
        }
    } catch (const EFileError&) {
        // The temporary folder is tried next.
    }
    std::string fallback = TemporaryFolder() + "temp.bmp";
    SaveBitmapFile(bitmap, fallback, screenBitsPerPixel);
    return fallback;
}

} // namespace murala
