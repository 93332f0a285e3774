#include "uIconFile.h"
#include "uWindowsHandles.h"

#include <algorithm>

namespace murala
{

std::optional<TBitmap> DecodeIcon(const TIconPicture& icon)
{
    constexpr DWORD IconVersion = 0x00030000;
    const TSize& size = icon.Size;
    std::string bits = icon.Bits;
    const TIcon handle(CreateIconFromResourceEx(reinterpret_cast<BYTE*>(bits.data()),
                                                static_cast<DWORD>(bits.size()), TRUE, IconVersion,
                                                size.Width, size.Height, 0));
    if (!handle)
        return std::nullopt;
    TPixel* pixels = nullptr;
    const TMemoryContext context(CreateCompatibleDC(nullptr));
    const TGdiObject<HBITMAP> paper = NewPixels(size, pixels);
    if (!context || !paper)
        throw std::bad_alloc();
    TBitmap bitmap(size.Width, size.Height);
    const auto count = static_cast<std::size_t>(size.Width) * size.Height;
    const TSelection selection(context.get(), paper.get());
    std::fill_n(pixels, count, 0xFFFFFFFF);
    if (DrawIconEx(context.get(), 0, 0, handle.get(), size.Width, size.Height, 0, nullptr,
                   DI_NORMAL) == FALSE)
        return std::nullopt;
    GdiFlush();
    std::copy_n(pixels, count, bitmap.Row(0));
    return bitmap;
}

} // namespace murala
