// Reading pictures row by row, whose format their content tells, and writing bitmap files.
#pragma once

#include "uBitmap.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace murala
{

// What is wrong with a picture's data, e.g. "not a JPEG or BMP picture", without the file's name.
class EImageFormat : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// "The image (%s) could not be loaded. The image file may be corrupt or missing."
class EInvalidImage : public std::runtime_error
{
public:
    explicit EInvalidImage(const std::string& fileName, std::string reason = {});
    std::string Reason; // why, for a developer; may be empty
};

// A picture whose rows are asked for from the top down; rows in between may be passed over, which
// costs less than reading them where the form allows it.
class TImageReader
{
public:
    virtual ~TImageReader() = default;
    virtual TSize Size() const = 0;
    // A short piece of what has to be done before the first row can be read; false when nothing is
    // left to do. For a picture that was opened InPieces, whose pieces are done before any row is
    // read. Throws EImageFormat.
    virtual bool Prepare() { return false; }
    // `y` must be greater than that of the call before. `row` holds Size().Width pixels, whose
    // unused byte may be anything. A cut-off file gives what there is (the rest as the decoder
    // leaves it: black or grey).
    virtual void ReadRow(int y, TPixel* row) = 0;
};

// How a JPEG is decoded: at 1/1, 1/2, 1/4 or 1/8 of its size, fast instead of exact, one of
// several scans by calls of Prepare instead of when it is opened, and with EImageFormat from
// ReadRow where a row is damaged or missing.
struct TDecoding {
    int Divisor = 1;
    bool Fast = false;
    bool InPieces = false;
    bool Strict = false;
};

// Throws EInvalidImage when the file is missing, is no picture or promises more than any picture
// may have. Here and below a lack of memory stays std::bad_alloc.
std::unique_ptr<TImageReader> OpenImage(const std::string& fileName, TDecoding decoding = {});

// The rows of a bitmap in memory, which must outlive the reader.
std::unique_ptr<TImageReader> ReadBitmap(const TBitmap& bitmap);

// The whole picture. Throws EInvalidImage.
TBitmap LoadImageFile(const std::string& fileName, TDecoding decoding = {});

// Only the header is read. Throws EInvalidImage.
TSize ImageFileSize(const std::string& fileName);

// A bottom-up BMP file of 32 bits a pixel (of 8 with an even palette for a screen of 8 bits), put
// in place with one rename. Throws EFileError.
void SaveBitmapFile(const TBitmap& bitmap, const std::string& fileName,
                    int screenBitsPerPixel = 32);

} // namespace murala
