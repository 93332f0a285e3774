// The BMP side of uImageFile: 1, 4, 8, 16, 24 and 32 bits, run lengths, bit fields, all header
// forms.
#pragma once

#include "uImageFile.h"
#include "uSafeFile.h"

namespace murala
{

// Both take the file from its beginning and throw EImageFormat.
std::unique_ptr<TImageReader> OpenBmp(TFile file, TDecoding decoding);
TSize BmpSize(TFile file);

} // namespace murala
