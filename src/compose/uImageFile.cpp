#include "uImageFile.h"

#include "uPath.h"
#include "uPictureFormats.h"
#include "uText.h"

#include <algorithm>
#include <array>
#include <vector>

namespace murala
{

namespace
{

const TPictureFormat& FormatOf(std::FILE* file)
{
    std::array<char, 16> start{};
    const std::string_view content(start.data(), std::fread(start.data(), 1, start.size(), file));
    std::rewind(file);
    for (const TPictureFormat& format : PictureFormats())
        if (content.starts_with(format.Signature))
            return format;
    throw EImageFormat("not a " + PictureFormatNames() + " picture");
}

// Pipes and devices could keep us waiting for ever.
TFile OpenPictureFile(const std::string& fileName)
{
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(NativePath(fileName), ignored))
        throw EImageFormat("there is no such file");
    TFile file = OpenFile(fileName, "rb");
    // Both readers read in large blocks of their own, and one jumps about.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

// Runs `work` on the file and its format.
template<typename TWork>
auto Load(const std::string& fileName, TWork work)
{
    try {
        TFile file = OpenPictureFile(fileName);
        const TPictureFormat& format = FormatOf(file.get());
        return work(format, std::move(file));
    } catch (const EImageFormat& error) {
        throw EInvalidImage(fileName, error.what());
    } catch (const EFileError& error) {
        throw EInvalidImage(fileName, error.what());
    }
}

class TBitmapReader : public TImageReader
{
public:
    explicit TBitmapReader(const TBitmap& bitmap) : m_bitmap(bitmap) {}
    TSize Size() const override { return m_bitmap.Size(); }
    void ReadRow(int y, TPixel* row) override
    {
        std::copy_n(m_bitmap.Row(y), m_bitmap.Width(), row);
    }

private:
    const TBitmap& m_bitmap;
};

} // namespace

EInvalidImage::EInvalidImage(const std::string& fileName, std::string reason)
    : std::runtime_error(FormatText("The image (%s) could not be loaded. The image file may be "
                                    "corrupt or missing.",
                                    {fileName})),
      Reason(std::move(reason))
{
}

std::unique_ptr<TImageReader> OpenImage(const std::string& fileName, TDecoding decoding)
{
    return Load(fileName, [=](const TPictureFormat& format, TFile file) {
        return format.Open(std::move(file), decoding);
    });
}

std::unique_ptr<TImageReader> ReadBitmap(const TBitmap& bitmap)
{
    return std::make_unique<TBitmapReader>(bitmap);
}

TBitmap LoadImageFile(const std::string& fileName, TDecoding decoding)
try {
    const auto reader = OpenImage(fileName, decoding);
    TBitmap bitmap(reader->Size().Width, reader->Size().Height);
    for (int y = 0; y < bitmap.Height(); ++y)
        reader->ReadRow(y, bitmap.Row(y));
    return bitmap;
} catch (const EImageFormat& error) {
    throw EInvalidImage(fileName, error.what());
}

TSize ImageFileSize(const std::string& fileName)
{
    return Load(fileName, [](const TPictureFormat& format, TFile file) {
        return format.Size(std::move(file));
    });
}

} // namespace murala
