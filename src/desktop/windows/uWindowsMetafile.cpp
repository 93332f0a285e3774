#include "uImageFile.h"
#include "uMetafile.h"
#include "uSafeFile.h"
#include "uWideText.h"
#include "uWindowsHandles.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace murala
{

namespace
{

using TMetafile = TOwned<HENHMETAFILE, DeleteEnhMetaFile>;

// A header that most metafiles of the old kind have in front; the system's functions do not know
// it.
#pragma pack(push, 1)
struct TPlaceableHeader {
    DWORD Mark;
    WORD Handle;
    SHORT Left, Top, Right, Bottom;
    WORD UnitsPerInch;
    DWORD Reserved;
    WORD CheckSum;
};
#pragma pack(pop)
constexpr DWORD PlaceableMark = 0x9AC6CDD7;
constexpr int HundredthsOfMillimetrePerInch = 2540;

// The size that its header gives the drawing.
METAFILEPICT PlaceOf(const TPlaceableHeader& header)
{
    const auto extent = [&](int from, int to) {
        return MulDiv(std::abs(to - from), HundredthsOfMillimetrePerInch,
                      std::max<int>(header.UnitsPerInch, 1));
    };
    return {MM_ANISOTROPIC, extent(header.Left, header.Right), extent(header.Top, header.Bottom),
            nullptr};
}

// Whether all records lie in the file: the system would read beyond its end.
bool IsWhole(std::string_view oldMetafile)
{
    METAHEADER header{};
    constexpr std::size_t HeaderSize = 18; // the structure ends with padding on some systems
    if (oldMetafile.size() < HeaderSize)
        return false;
    std::memcpy(&header, oldMetafile.data(), HeaderSize);
    return header.mtHeaderSize * sizeof(WORD) == HeaderSize &&
           header.mtSize <= oldMetafile.size() / sizeof(WORD);
}

TMetafile OpenMetafile(const std::string& fileName)
{
    if (TMetafile file{GetEnhMetaFileW(WideText(fileName).c_str())})
        return file;
    const std::string content = ReadWholeFile(fileName);
    TPlaceableHeader header{};
    if (content.size() > sizeof header)
        std::memcpy(&header, content.data(), sizeof header);
    const bool isPlaceable = header.Mark == PlaceableMark;
    const std::size_t begin = isPlaceable ? sizeof header : 0;
    if (!IsWhole(content.substr(begin)))
        return nullptr;
    const METAFILEPICT place = PlaceOf(header);
    return TMetafile(SetWinMetaFileBits(static_cast<UINT>(content.size() - begin),
                                        reinterpret_cast<const BYTE*>(content.data()) + begin,
                                        nullptr, isPlaceable ? &place : nullptr));
}

// The header gives the frame in hundredths of a millimetre; a pixel is 1/96 inch.
TSize SizeOf(HENHMETAFILE file)
{
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(file, sizeof header, &header);
    const auto pixels = [](LONG from, LONG to) {
        return static_cast<int>((static_cast<std::int64_t>(to) - from) * 96 /
                                HundredthsOfMillimetrePerInch);
    };
    return {pixels(header.rclFrame.left, header.rclFrame.right),
            pixels(header.rclFrame.top, header.rclFrame.bottom)};
}

void Play(HENHMETAFILE file, TBitmap& bitmap)
{
    TPixel* pixels = nullptr;
    const TMemoryContext context(CreateCompatibleDC(nullptr));
    const TGdiObject<HBITMAP> paper = NewPixels({bitmap.Width(), bitmap.Height()}, pixels);
    if (!context || !paper)
        throw std::bad_alloc();
    const auto bytes = sizeof(TPixel) * static_cast<std::size_t>(bitmap.Width()) * bitmap.Height();
    std::memset(pixels, 0xFF, bytes);
    const TSelection selection(context.get(), paper.get());
    const RECT place{0, 0, bitmap.Width(), bitmap.Height()};
    PlayEnhMetaFile(context.get(), file, &place);
    GdiFlush();
    std::memcpy(bitmap.Row(0), pixels, bytes);
}

} // namespace

TBitmap LoadMetafile(const std::string& fileName)
{
    try {
        const TMetafile file = OpenMetafile(fileName);
        const TSize size = file ? SizeOf(file.get()) : TSize();
        if (size.Width < 1 || size.Height < 1)
            throw EInvalidImage(fileName, "not a metafile");
        TBitmap bitmap(size.Width, size.Height);
        Play(file.get(), bitmap);
        return bitmap;
    } catch (const EFileError& error) {
        throw EInvalidImage(fileName, error.what());
    }
}

} // namespace murala
