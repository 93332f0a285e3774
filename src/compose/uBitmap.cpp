#include "uBitmap.h"

#include "uImageFile.h"

#include <algorithm>

namespace murala
{

TBitmap::TBitmap(int width, int height) : m_size{width, height}
{
    if (!IsUsable(m_size))
        throw EInvalidImage({}, "a bitmap cannot have this size");
    m_pixels = std::make_unique_for_overwrite<TPixel[]>(static_cast<std::size_t>(width) * height);
}

TBitmap TBitmap::Copy() const
{
    TBitmap copy(Width(), Height());
    std::copy_n(Row(0), static_cast<std::size_t>(Width()) * Height(), copy.Row(0));
    return copy;
}

} // namespace murala
