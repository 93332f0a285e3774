// Icon files (.ico), whose pictures each system reads itself in all their forms.
#pragma once

#include "uBitmap.h"

#include <optional>
#include <string>

namespace murala
{

// The largest picture in the file, on white where it is transparent. Throws EInvalidImage.
TBitmap LoadIconFile(const std::string& fileName);

// One of the file's pictures: the content of a PNG file, or a BMP's header, pixels and mask.
struct TIconPicture {
    TSize Size;
    std::string Bits;
};
// Nothing when it cannot be read. Defined once per home.
std::optional<TBitmap> DecodeIcon(const TIconPicture& icon);

} // namespace murala
