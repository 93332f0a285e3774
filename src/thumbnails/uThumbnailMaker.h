// Makes one thumbnail from its picture, in steps that are short enough for idle time.
#pragma once

#include "uDisplayMode.h"
#include "uImageFile.h"

#include <vector>

namespace murala
{

// The size in which thumbnails are stored, whatever the picture's proportions and their size on
// screen.
inline constexpr TSize StoredThumbnailSize = {64, 48};

// How much smaller a JPEG of this size is decoded for its thumbnail: 1, 2, 4 or 8 times.
int ThumbnailDivisor(TSize picture);

class TThumbnailMaker
{
public:
    // Opens the picture. Throws EInvalidImage.
    explicit TThumbnailMaker(const std::string& fileName);

    // Some of the work, a few milliseconds for a photograph; true when the thumbnail is whole.
    // Throws EInvalidImage.
    bool Step();
    TBitmap Take() { return std::move(m_thumbnail); }

private:
    void DrawRow(int y);

    std::unique_ptr<TImageReader> m_picture;
    std::string m_fileName;
    TDrawMap m_map;
    TBitmap m_thumbnail;
    std::vector<TPixel> m_line; // the row m_present of the picture
    int m_present = Background;
    int m_next = 0; // the thumbnail's first row that is not drawn
};

} // namespace murala
