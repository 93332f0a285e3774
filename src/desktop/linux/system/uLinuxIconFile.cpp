#include "uGLib.h"
#include "uIconFile.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <array>
#include <string_view>

namespace murala
{

namespace
{

// gdk-pixbuf reads no PNG inside an icon file, and no icon picture without the file's header: the
// one is given alone, the other behind a header made here.
std::string ReadableContent(const TIconPicture& icon)
{
    if (icon.Bits.starts_with("\x89PNG"))
        return icon.Bits;
    constexpr std::string_view Directory("\0\0\1\0\1\0", 6);
    const std::array<std::uint32_t, 4> entry{
        static_cast<std::uint32_t>((icon.Size.Width & 0xFF) | (icon.Size.Height & 0xFF) << 8), 0,
        static_cast<std::uint32_t>(icon.Bits.size()),
        static_cast<std::uint32_t>(Directory.size() + sizeof entry)};
    return std::string(Directory) +
           std::string(reinterpret_cast<const char*>(entry.data()), sizeof entry) + icon.Bits;
}

TGObject<GdkPixbuf> Load(const std::string& content)
{
    const TGObject<GdkPixbufLoader> loader(gdk_pixbuf_loader_new());
    const bool isRead =
        gdk_pixbuf_loader_write(loader.get(), reinterpret_cast<const guchar*>(content.data()),
                                content.size(), nullptr) != FALSE;
    const bool isWhole = gdk_pixbuf_loader_close(loader.get(), nullptr) != FALSE;
    GdkPixbuf* picture = isRead && isWhole ? gdk_pixbuf_loader_get_pixbuf(loader.get()) : nullptr;
    return TGObject<GdkPixbuf>(picture != nullptr ? gdk_pixbuf_add_alpha(picture, FALSE, 0, 0, 0)
                                                  : nullptr);
}

} // namespace

std::optional<TBitmap> DecodeIcon(const TIconPicture& icon)
{
    constexpr int Channels = 4;
    const auto picture = Load(ReadableContent(icon));
    if (!picture)
        return std::nullopt;
    TBitmap bitmap(gdk_pixbuf_get_width(picture.get()), gdk_pixbuf_get_height(picture.get()));
    for (int y = 0; y < bitmap.Height(); ++y) {
        const guint8* source =
            gdk_pixbuf_read_pixels(picture.get()) +
            static_cast<std::ptrdiff_t>(y) * gdk_pixbuf_get_rowstride(picture.get());
        for (int x = 0; x < bitmap.Width(); ++x, source += Channels) {
            const unsigned alpha = source[3];
            const auto onWhite = [=](unsigned channel) {
                return (channel * alpha + 255 * (255 - alpha) + 127) / 255;
            };
            bitmap.Row(y)[x] =
                onWhite(source[0]) << 16U | onWhite(source[1]) << 8U | onWhite(source[2]);
        }
    }
    return bitmap;
}

} // namespace murala
