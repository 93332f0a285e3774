// Metafiles: drawings that the system plays back, where it can.
#pragma once

#include "uBitmap.h"

#include <string>

namespace murala
{

// The drawing in its own size on white. Throws EInvalidImage, always where the system knows no
// metafiles.
TBitmap LoadMetafile(const std::string& fileName);

} // namespace murala
