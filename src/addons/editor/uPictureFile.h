// Pictures of all the kinds that this system can read.
#pragma once

#include "uImageFile.h"

namespace murala
{

// JPEG and BMP pictures, icons, and metafiles where the system has them. Throws EInvalidImage.
TBitmap LoadPictureFile(const std::string& fileName);

} // namespace murala
