#include "uPictureFile.h"

#include "uMetafile.h"
#include "uPath.h"
#include "uWxText.h"

#include <wx/image.h>
#include <wx/log.h>
#include <wx/wfstream.h>

namespace murala
{

namespace
{

// The largest picture of the icon, on white where it is transparent.
TBitmap LoadIcon(const std::string& fileName)
{
    const wxLogNull noMessages;
    wxICOHandler handler;
    wxFileInputStream stream(ToWx(fileName));
    const int count = stream.IsOk() ? handler.GetImageCount(stream) : 0;
    wxImage largest;
    for (int i = 0; i < count; ++i) {
        wxImage image;
        stream.SeekI(0);
        if (handler.LoadFile(&image, stream, false, i) && image.IsOk() &&
            (!largest.IsOk() || image.GetWidth() > largest.GetWidth()))
            largest = image;
    }
    if (!largest.IsOk())
        throw EInvalidImage(fileName, "not an icon");
    if (!largest.HasAlpha())
        largest.InitAlpha();
    TBitmap bitmap(largest.GetWidth(), largest.GetHeight());
    for (int y = 0; y < bitmap.Height(); ++y)
        for (int x = 0; x < bitmap.Width(); ++x) {
            const unsigned alpha = largest.GetAlpha(x, y);
            const auto over = [=](unsigned char c) {
                return (c * alpha + 255 * (255 - alpha)) / 255;
            };
            bitmap.Row(y)[x] = over(largest.GetRed(x, y)) << 16U |
                               over(largest.GetGreen(x, y)) << 8U | over(largest.GetBlue(x, y));
        }
    return bitmap;
}

bool HasExtension(const std::string& fileName, const wxString& extension)
{
    return ToWx(FileNamePart(fileName)).Lower().EndsWith(extension);
}

} // namespace

TBitmap LoadPictureFile(const std::string& fileName)
{
    if (HasExtension(fileName, ".ico"))
        return LoadIcon(fileName);
    if (HasExtension(fileName, ".emf") || HasExtension(fileName, ".wmf"))
        return LoadMetafile(fileName);
    return LoadImageFile(fileName);
}

} // namespace murala
