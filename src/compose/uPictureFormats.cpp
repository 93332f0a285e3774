#include "uPictureFormats.h"

#include "uBmpFile.h"
#include "uJpegFile.h"
#include "uPath.h"
#include "uText.h"

namespace murala
{

namespace
{

constexpr TPictureFormat Formats[] = {
    {"JPEG", {"JPEG Image File", {".jpg", ".jpeg"}}, "\xFF\xD8\xFF", OpenJpeg, JpegSize},
    {"BMP", {"Bitmaps", {".bmp"}}, "BM", OpenBmp, BmpSize},
};

} // namespace

std::span<const TPictureFormat> PictureFormats()
{
    return Formats;
}

std::vector<TFileKind> PictureFileKinds()
{
    std::vector<TFileKind> kinds;
    std::ranges::transform(Formats, std::back_inserter(kinds), &TPictureFormat::Files);
    return kinds;
}

std::string PictureFormatNames()
{
    std::string names;
    for (const TPictureFormat& format : Formats)
        names.append(names.empty()                      ? ""
                     : &format == std::end(Formats) - 1 ? " or "
                                                        : ", ")
            .append(format.Name);
    return names;
}

bool IsOfKind(std::string_view path, const TFileKind& kind)
{
    const std::string own = ExtensionPart(path);
    return std::ranges::any_of(kind.Extensions(), [&](std::string_view extension) {
        return SameTextAscii(own, extension);
    });
}

bool HasPictureExtension(std::string_view path)
{
    return std::ranges::any_of(
        Formats, [=](const TPictureFormat& format) { return IsOfKind(path, format.Files); });
}

std::vector<std::string> UsualPictureExtensions()
{
    std::vector<std::string> extensions;
    for (const TPictureFormat& format : Formats)
        extensions.emplace_back(format.Files.Ends[0]);
    std::ranges::sort(extensions);
    return extensions;
}

std::vector<std::string> PictureExtensionsLike(const std::string& extension)
{
    for (const TPictureFormat& format : Formats)
        if (const auto all = format.Files.Extensions(); IsOfKind(extension, format.Files))
            return {all.begin(), all.end()};
    return {extension};
}

} // namespace murala
