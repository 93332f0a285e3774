// The selected wallpaper's picture in full size, held for the preview and for applying.
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
    // Makes one short step of loading the file as it is now; returns true when it is held. Throws
    // EInvalidImage.
    bool LoadSome(const std::string& fileName);
    void Load(const std::string& fileName);
    void Release();

    bool Holds(const std::string& fileName) const;
    // Whether it is held, but the file was written again since.
    bool IsOutOfDate(const std::string& fileName) const;
    TSize Size() const { return m_bitmap.Size(); }

    // A reader of the held picture if the file is held, else of the file. Throws EInvalidImage.
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
