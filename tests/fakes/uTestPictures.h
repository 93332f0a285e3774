// Pictures of one colour.
#pragma once

#include "uBitmap.h"
#include "uImageFile.h"

#include <algorithm>
#include <string>

namespace murala
{

inline TBitmap EvenBitmap(int width, int height, TPixel color)
{
    TBitmap bitmap(width, height);
    std::fill_n(bitmap.Row(0), width * height, color);
    return bitmap;
}

// The file's name again.
inline std::string SavePicture(const std::string& fileName, int width, int height, TColor color)
{
    SaveBitmapFile(EvenBitmap(width, height, ColorToPixel(color)), fileName);
    return fileName;
}

} // namespace murala
