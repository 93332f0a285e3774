// The JPEG side of uImageFile, and writing JPEG files.
#pragma once

#include "uImageFile.h"
#include "uSafeFile.h"

namespace murala
{

// Both take the file from its beginning and throw EImageFormat. The orientation that a camera has
// noted is not applied.
std::unique_ptr<TImageReader> OpenJpeg(TFile file, TDecoding decoding);
TSize JpegSize(TFile file);

// `quality` 1..100. Throws EFileError.
void SaveJpegFile(const TBitmap& bitmap, const std::string& fileName, int quality);

} // namespace murala
