#include "uWxBitmap.h"

namespace murala
{

wxColour ToWxColour(TColor color)
{
    return {static_cast<unsigned char>(color), static_cast<unsigned char>(color >> 8U),
            static_cast<unsigned char>(color >> 16U)};
}

TColor FromWxColour(const wxColour& colour)
{
    return colour.Red() | (static_cast<TColor>(colour.Green()) << 8U) |
           (static_cast<TColor>(colour.Blue()) << 16U);
}

wxImage ToWxImage(const TBitmap& bitmap)
{
    wxImage image(bitmap.Width(), bitmap.Height(), false);
    unsigned char* to = image.GetData();
    for (int y = 0; y < bitmap.Height(); ++y) {
        const TPixel* from = bitmap.Row(y);
        for (int x = 0; x < bitmap.Width(); ++x) {
            *to++ = static_cast<unsigned char>(from[x] >> 16U);
            *to++ = static_cast<unsigned char>(from[x] >> 8U);
            *to++ = static_cast<unsigned char>(from[x]);
        }
    }
    return image;
}

} // namespace murala
