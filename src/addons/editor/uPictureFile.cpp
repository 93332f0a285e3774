#include "uPictureFile.h"

#include "uIconFile.h"
#include "uMetafile.h"

namespace murala
{

namespace
{

// What the system reads, beside the picture formats; told by their names.
struct TSystemFormat {
    TFileKind Files;
    TBitmap (*Load)(const std::string& fileName);
};
constexpr TSystemFormat SystemFormats[] = {
    {{"Icons", {".ico"}}, LoadIconFile},
    {{"Enhanced Metafiles", {".emf"}}, LoadMetafile},
    {{"Metafiles", {".wmf"}}, LoadMetafile},
};

} // namespace

TBitmap LoadPictureFile(const std::string& fileName)
{
    for (const TSystemFormat& format : SystemFormats)
        if (IsOfKind(fileName, format.Files))
            return format.Load(fileName);
    return LoadImageFile(fileName);
}

std::vector<TFileKind> BackgroundFileKinds()
{
    std::vector<TFileKind> kinds = PictureFileKinds();
    for (const TSystemFormat& format : SystemFormats)
        kinds.push_back(format.Files);
    return kinds;
}

} // namespace murala
