#include "uBmpHeader.h"

#include "uImageFile.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <span>

namespace murala
{

namespace
{

constexpr std::uint32_t FileHeaderSize = 14;
constexpr std::uint32_t CoreHeaderSize = 12;
constexpr std::uint32_t InfoHeaderSize = 40;
constexpr std::uint32_t Os2HeaderSize = 64;
constexpr std::uint32_t LargestHeaderSize = 124;
// The bit masks stand here in all header forms that have them: in the larger headers, or behind one
// of InfoHeaderSize.
constexpr std::uint32_t MaskOffset = FileHeaderSize + InfoHeaderSize;
constexpr long MaxPixelOffset = 1L << 30;

enum : std::uint32_t {
    coPlain = 0,
    coRunLength8 = 1,
    coRunLength4 = 2,
    coBitFields = 3,
    coAlphaBitFields = 6,
};

struct TForm {
    int BitCount;
    std::uint32_t Compression;
    std::array<std::uint32_t, 3> Masks = {}; // red, green, blue; of the file when there are none
};
constexpr TForm Forms[] = {
    {1, coPlain},           {4, coPlain},
    {8, coPlain},           {16, coPlain, {0x7C00, 0x03E0, 0x001F}},
    {24, coPlain},          {32, coPlain, {0xFF0000, 0x00FF00, 0x0000FF}},
    {4, coRunLength4},      {8, coRunLength8},
    {16, coBitFields},      {32, coBitFields},
    {16, coAlphaBitFields}, {32, coAlphaBitFields},
};

const TForm& FormOf(int bitCount, std::uint32_t compression)
{
    const auto form = std::ranges::find_if(Forms, [=](const TForm& candidate) {
        return candidate.BitCount == bitCount && candidate.Compression == compression;
    });
    if (form == std::end(Forms))
        throw EImageFormat("BMP: unknown combination of bit count and compression");
    return *form;
}

// The beginning of the file; what is missing reads as 0.
class THead
{
public:
    explicit THead(std::FILE* file) : m_read(std::fread(m_bytes.data(), 1, m_bytes.size(), file))
    {
        m_headerSize = Long(FileHeaderSize);
        const bool isKnown = m_headerSize == CoreHeaderSize ||
                             (m_headerSize >= 16 && m_headerSize <= LargestHeaderSize);
        if (!isKnown || m_read < FileHeaderSize + m_headerSize)
            throw EImageFormat("BMP: unknown or incomplete header");
    }

    std::uint32_t HeaderSize() const { return m_headerSize; }
    bool IsCore() const { return m_headerSize == CoreHeaderSize; }
    bool HasMasksBehind() const { return m_headerSize == InfoHeaderSize; }

    std::uint32_t Long(std::uint32_t offset) const
    {
        return Word(offset) | std::uint32_t{Word(offset + 2)} << 16U;
    }
    std::uint16_t Word(std::uint32_t offset) const
    {
        return static_cast<std::uint16_t>(m_bytes[offset] | m_bytes[offset + 1] << 8U);
    }
    // A field of the header behind its first three; short headers leave fields out.
    std::uint32_t OptionalLong(std::uint32_t offset) const
    {
        return offset + 4 <= FileHeaderSize + m_headerSize ? Long(offset) : 0;
    }

private:
    std::array<std::uint8_t, FileHeaderSize + LargestHeaderSize + 16> m_bytes{};
    std::size_t m_read;
    std::uint32_t m_headerSize;
};

TSize SizeOf(const THead& head, bool& isTopDown)
{
    if (head.IsCore())
        return {head.Word(18), head.Word(20)};
    const auto height = static_cast<std::int32_t>(head.Long(22));
    isTopDown = height < 0;
    if (height == INT_MIN)
        throw EImageFormat("BMP: the height is out of range");
    return {static_cast<std::int32_t>(head.Long(18)), isTopDown ? -height : height};
}

// `bytes` is the distance from the palette to the pixels.
void ReadPalette(std::FILE* file, const THead& head, std::uint32_t offset, std::uint32_t bytes,
                 std::span<TPixel> palette)
{
    const std::size_t entrySize = head.IsCore() ? 3 : 4;
    std::size_t count = std::min<std::size_t>(palette.size(), bytes / entrySize);
    if (const std::uint32_t used = head.OptionalLong(46); used != 0)
        count = std::min<std::size_t>(count, used);
    std::array<std::uint8_t, 1024> entries{};
    std::fseek(file, static_cast<long>(offset), SEEK_SET);
    const std::size_t read = std::fread(entries.data(), entrySize, count, file);
    for (std::size_t i = 0; i < read; ++i) {
        const std::uint8_t* entry = entries.data() + i * entrySize;
        palette[i] = entry[0] | TPixel{entry[1]} << 8U | TPixel{entry[2]} << 16U;
    }
}

} // namespace

TBmpChannel::TBmpChannel(std::uint32_t mask)
    : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask))
{
    if (mask == 0)
        return;
    for (std::uint32_t value = 0; value < m_scaled.size(); ++value)
        m_scaled[value] = static_cast<std::uint8_t>(Scaled(value));
}

TPixel TBmpChannel::Scaled(std::uint32_t value) const
{
    const std::uint32_t max = m_mask >> m_shift;
    return static_cast<TPixel>((value * std::uint64_t{255} + max / 2) / max);
}

TBmpHeader::TBmpHeader(std::FILE* file)
{
    const THead head(file);
    Size = SizeOf(head, IsTopDown);
    if (Size.Width < 1 || Size.Height < 1 || !IsUsable(Size))
        throw EImageFormat("BMP: the size is out of range");
    BitCount = head.Word(head.IsCore() ? 24 : 28);
    const std::uint32_t compression = head.OptionalLong(30);
    const TForm& form = FormOf(BitCount, compression);
    IsRunLength = compression == coRunLength8 || compression == coRunLength4;
    const bool hasMasks = compression >= coBitFields;
    if (hasMasks && head.HeaderSize() == Os2HeaderSize)
        throw EImageFormat("BMP: unknown compression");

    const auto mask = [&](std::uint32_t i) {
        return hasMasks ? head.Long(MaskOffset + 4 * i) : form.Masks[i];
    };
    Red = TBmpChannel(mask(0));
    Green = TBmpChannel(mask(1));
    Blue = TBmpChannel(mask(2));

    std::uint32_t paletteOffset = FileHeaderSize + head.HeaderSize();
    if (hasMasks && head.HasMasksBehind())
        paletteOffset += compression == coAlphaBitFields ? 16 : 12;
    const std::uint32_t colors = BitCount <= 8 ? 1U << BitCount : 0;
    const std::uint32_t offset = head.Long(10);
    // Some writers leave the offset out.
    PixelOffset = offset >= paletteOffset
                      ? static_cast<long>(std::min<std::uint32_t>(offset, MaxPixelOffset))
                      : static_cast<long>(paletteOffset + colors * (head.IsCore() ? 3 : 4));
    ReadPalette(file, head, paletteOffset, static_cast<std::uint32_t>(PixelOffset) - paletteOffset,
                {Palette.data(), colors});
}

long TBmpHeader::Stride() const
{
    return static_cast<long>((std::int64_t{Size.Width} * BitCount + 31) / 32 * 4);
}

} // namespace murala
