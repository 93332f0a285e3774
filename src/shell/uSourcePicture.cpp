#include "uSourcePicture.h"

#include "uPath.h"

#include <algorithm>

namespace murala
{

namespace
{

// Keeps a step at a few milliseconds for photographs.
constexpr int PixelsPerStep = 1 << 20;

std::filesystem::file_time_type FileTime(const std::string& fileName)
{
    std::error_code absent;
    return std::filesystem::last_write_time(NativePath(fileName), absent);
}

} // namespace

bool TSourcePicture::TLoading::Step()
try {
    if (Reader->Prepare())
        return false;
    if (Bitmap.Width() == 0)
        Bitmap = TBitmap(Reader->Size().Width, Reader->Size().Height);
    const int rows = std::max(1, PixelsPerStep / Bitmap.Width());
    for (const int end = std::min(NextRow + rows, Bitmap.Height()); NextRow < end; ++NextRow)
        Reader->ReadRow(NextRow, Bitmap.Row(NextRow));
    return NextRow == Bitmap.Height();
} catch (const EImageFormat& error) {
    throw EInvalidImage(FileName, error.what());
}

bool TSourcePicture::LoadSome(const std::string& fileName)
try {
    if (Holds(fileName))
        return true;
    const auto fileTime = FileTime(fileName);
    if (!m_loading || m_loading->FileName != fileName || m_loading->FileTime != fileTime) {
        Release();
        m_loading = TLoading{fileName, fileTime, OpenImage(fileName, {.InPieces = true}), {}};
    }
    if (!m_loading->Step())
        return false;
    m_bitmap = std::move(m_loading->Bitmap);
    m_fileName = fileName;
    m_fileTime = fileTime;
    m_loading.reset();
    return true;
} catch (...) {
    m_loading.reset();
    throw;
}

void TSourcePicture::Load(const std::string& fileName)
{
    while (!LoadSome(fileName)) {
    }
}

void TSourcePicture::Release()
{
    m_loading.reset();
    m_fileName.clear();
    m_bitmap = TBitmap();
}

bool TSourcePicture::Holds(const std::string& fileName) const
{
    return !m_fileName.empty() && fileName == m_fileName && FileTime(fileName) == m_fileTime;
}

bool TSourcePicture::IsOutOfDate(const std::string& fileName) const
{
    return !m_fileName.empty() && fileName == m_fileName && FileTime(fileName) != m_fileTime;
}

std::unique_ptr<TImageReader> TSourcePicture::Open(const std::string& fileName) const
{
    return Holds(fileName) ? ReadBitmap(m_bitmap) : OpenImage(fileName);
}

TSize TSourcePicture::SizeOf(const std::string& fileName) const
{
    if (Holds(fileName))
        return m_bitmap.Size();
    try {
        return ImageFileSize(fileName);
    } catch (const EInvalidImage&) {
        return {};
    }
}

} // namespace murala
