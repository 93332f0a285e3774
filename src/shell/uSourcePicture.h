// The picture of the selected wallpaper at its full size, kept for the preview and for applying.
#pragma once

#include "uImageFile.h"

#include <filesystem>
#include <memory>
#include <string>

namespace murala
{

class TSourcePicture
{
public:
    // Loads the file unless it is held already and has not changed since. Throws EInvalidImage.
    void Load(const std::string& fileName);
    void Release();

    bool Holds(const std::string& fileName) const;
    // Whether it is held as it was before the file was written again.
    bool IsOutOfDate(const std::string& fileName) const;
    TSize Size() const { return m_bitmap.Size(); }

    // The held rows when the file is held, else the file's. Throws EInvalidImage.
    std::unique_ptr<TImageReader> Open(const std::string& fileName) const;
    // {0, 0} when the file cannot be read.
    TSize SizeOf(const std::string& fileName) const;

private:
    std::string m_fileName;
    std::filesystem::file_time_type m_fileTime;
    TBitmap m_bitmap;
};

} // namespace murala
