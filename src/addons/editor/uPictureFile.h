// Opens pictures of all kinds that this system can read.
#pragma once

#include "uPictureFormats.h"

namespace murala
{

// The picture formats, icons, and metafiles where the system has them. Throws EInvalidImage.
TBitmap LoadPictureFile(const std::string& fileName);
// All of them.
std::vector<TFileKind> BackgroundFileKinds();

} // namespace murala
