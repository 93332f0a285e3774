#include "uPictureFile.h"

#include "uIconFile.h"
#include "uMetafile.h"
#include "uPath.h"
#include "uWxText.h"

namespace murala
{

namespace
{

bool HasExtension(const std::string& fileName, const wxString& extension)
{
    return ToWx(FileNamePart(fileName)).Lower().EndsWith(extension);
}

} // namespace

TBitmap LoadPictureFile(const std::string& fileName)
{
    if (HasExtension(fileName, ".ico"))
        return LoadIconFile(fileName);
    if (HasExtension(fileName, ".emf") || HasExtension(fileName, ".wmf"))
        return LoadMetafile(fileName);
    return LoadImageFile(fileName);
}

} // namespace murala
