#include "uTrayFrames.h"

#include "../resources/murala.xpm"

#include <wx/bitmap.h>
#include <wx/icon.h>
#include <wx/image.h>

namespace murala
{

namespace
{

constexpr int Sides[] = {16, 22, 24, 32, 48, 64};
constexpr double Hues[TrayFrameCount] = {0, 0.12, 0.55};

TBitmap ToBitmap(const wxImage& image)
{
    TBitmap bitmap(image.GetWidth(), image.GetHeight());
    const unsigned char* color = image.GetData();
    const unsigned char* alpha = image.GetAlpha();
    for (int y = 0; y < bitmap.Height(); ++y)
        for (int x = 0; x < bitmap.Width(); ++x, color += 3, ++alpha)
            bitmap.Row(y)[x] = (TPixel{*alpha} << 24U) | (TPixel{color[0]} << 16U) |
                               (TPixel{color[1]} << 8U) | color[2];
    return bitmap;
}

wxImage ToImage(const TBitmap& bitmap)
{
    wxImage image(bitmap.Width(), bitmap.Height());
    image.SetAlpha();
    for (int y = 0; y < bitmap.Height(); ++y)
        for (int x = 0; x < bitmap.Width(); ++x) {
            const TPixel pixel = bitmap.Row(y)[x];
            image.SetRGB(x, y, static_cast<unsigned char>(pixel >> 16U),
                         static_cast<unsigned char>(pixel >> 8U),
                         static_cast<unsigned char>(pixel));
            image.SetAlpha(x, y, static_cast<unsigned char>(pixel >> 24U));
        }
    return image;
}

wxImage ReadProgramPicture()
{
    wxImage picture(murala_xpm);
    if (!picture.HasAlpha())
        picture.InitAlpha();
    return picture;
}

} // namespace

const wxImage& ProgramPicture()
{
    static const wxImage picture = ReadProgramPicture();
    return picture;
}

std::shared_ptr<const TIconImage> NewTrayFrame(int frame)
{
    wxImage picture = ProgramPicture().Copy();
    picture.RotateHue(Hues[frame]);
    auto image = std::make_shared<TIconImage>();
    for (const int side : Sides)
        image->push_back(ToBitmap(picture.Scale(side, side, wxIMAGE_QUALITY_HIGH)));
    return image;
}

wxIconBundle ToIconBundle(const TIconImage& image)
{
    wxIconBundle bundle;
    for (const TBitmap& bitmap : image) {
        wxIcon icon;
        icon.CopyFromBitmap(wxBitmap(ToImage(bitmap)));
        bundle.AddIcon(icon);
    }
    return bundle;
}

} // namespace murala
