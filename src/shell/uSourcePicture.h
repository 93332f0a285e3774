// The picture of the selected wallpaper at its full size, kept for the preview and for applying.
#pragma once

#include "uImageFile.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace murala
{

class TSourcePicture
{
public:
    // A short step towards holding the file as it is now; true when it is held. Throws
    // EInvalidImage.
    bool LoadSome(const std::string& fileName);
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
    using TFileTime = std::filesystem::file_time_type;
    struct TLoading {
        std::string FileName;
        TFileTime FileTime;
        std::unique_ptr<TImageReader> Reader;
        TBitmap Bitmap;
        int NextRow = 0;

        bool Step(); // true when the bitmap is whole
    };

    std::optional<TLoading> m_loading;
    std::string m_fileName;
    TFileTime m_fileTime;
    TBitmap m_bitmap;
};

} // namespace murala
