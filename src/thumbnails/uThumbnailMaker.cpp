#include "uThumbnailMaker.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr int RowsPerStep = StoredThumbnailSize.Height / 8;

struct TScale {
    std::int64_t MorePixelsThan;
    int Divisor;
};
constexpr TScale Scales[] = {{16384, 8}, {8192, 4}, {4096, 2}};

} // namespace

int ThumbnailDivisor(TSize picture)
{
    const std::int64_t pixels = std::int64_t{picture.Width} * picture.Height;
    const auto* scale = std::ranges::find_if(
        Scales, [=](const TScale& each) { return pixels > each.MorePixelsThan; });
    return scale == std::end(Scales) ? 1 : scale->Divisor;
}

TThumbnailMaker::TThumbnailMaker(const std::string& fileName)
    : m_picture(OpenImage(
          fileName,
          {.Divisor = ThumbnailDivisor(ImageFileSize(fileName)), .Fast = true, .InPieces = true})),
      m_fileName(fileName), m_thumbnail(StoredThumbnailSize.Width, StoredThumbnailSize.Height)
{
    const TSize size = m_picture->Size();
    if (size.Width < 1 || size.Height < 1)
        throw EInvalidImage(fileName, "the picture has no pixels");
    m_map = StretchDraw(size, StoredThumbnailSize);
    m_line.resize(static_cast<std::size_t>(size.Width));
}

bool TThumbnailMaker::Step()
try {
    if (m_picture->Prepare())
        return false;
    const int end = std::min(m_next + RowsPerStep, StoredThumbnailSize.Height);
    for (; m_next < end; ++m_next)
        DrawRow(m_next);
    return m_next == StoredThumbnailSize.Height;
} catch (const EImageFormat& error) {
    throw EInvalidImage(m_fileName, error.what());
}

void TThumbnailMaker::DrawRow(int y)
{
    const int needed = m_map.Rows[static_cast<std::size_t>(y)];
    if (needed != m_present)
        m_picture->ReadRow(needed, m_line.data());
    m_present = needed;
    std::ranges::transform(m_map.Columns, m_thumbnail.Row(y), [this](int column) {
        return m_line[static_cast<std::size_t>(column)] & 0xFFFFFFU;
    });
}

} // namespace murala
