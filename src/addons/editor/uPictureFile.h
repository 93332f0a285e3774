// Opens pictures of all kinds that this system can read.
#pragma once

#include "uImageFile.h"

namespace murala
{

// JPEG and BMP files, icons, and metafiles where the system knows them. Throws EInvalidImage.
TBitmap LoadPictureFile(const std::string& fileName);

} // namespace murala
