#include "uSourcePicture.h"

#include "uPath.h"

namespace murala
{

namespace
{

std::filesystem::file_time_type FileTime(const std::string& fileName)
{
    std::error_code absent;
    return std::filesystem::last_write_time(NativePath(fileName), absent);
}

} // namespace

void TSourcePicture::Load(const std::string& fileName)
{
    if (Holds(fileName))
        return;
    Release();
    const auto fileTime = FileTime(fileName);
    m_bitmap = LoadImageFile(fileName);
    m_fileName = fileName;
    m_fileTime = fileTime;
}

void TSourcePicture::Release()
{
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
