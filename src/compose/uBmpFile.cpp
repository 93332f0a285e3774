#include "uBmpFile.h"

#include "uBmpHeader.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace murala
{

namespace
{

// A run-length picture is decoded as a whole, one byte a pixel.
constexpr std::int64_t MaxRunLengthPixels = 1 << 26;
// Rows are read in blocks of about this size.
constexpr long BlockBytes = 1 << 18;

using TUnpack = void (*)(const TBmpHeader& header, const std::uint8_t* bytes, TPixel* row);

template<int Bits>
void UnpackIndexes(const TBmpHeader& header, const std::uint8_t* bytes, TPixel* row)
{
    constexpr int perByte = 8 / Bits;
    for (int x = 0; x < header.Size.Width; ++x) {
        const int shift = 8 - Bits - x % perByte * Bits;
        row[x] = header.Palette[(bytes[x / perByte] >> shift) & ((1 << Bits) - 1)];
    }
}

template<typename TWord>
void UnpackWords(const TBmpHeader& header, const std::uint8_t* bytes, TPixel* row)
{
    for (int x = 0; x < header.Size.Width; ++x, bytes += sizeof(TWord)) {
        TWord word;
        std::memcpy(&word, bytes, sizeof word);
        row[x] = header.Red(word) << 16U | header.Green(word) << 8U | header.Blue(word);
    }
}

// The block has a byte behind its end, so that every pixel can be taken as four bytes.
void UnpackBytes(const TBmpHeader& header, const std::uint8_t* bytes, TPixel* row)
{
    for (int x = 0; x < header.Size.Width; ++x, bytes += 3)
        std::memcpy(&row[x], bytes, sizeof *row);
}

TUnpack UnpackOf(int bitCount)
{
    switch (bitCount) {
    case 1:
        return UnpackIndexes<1>;
    case 4:
        return UnpackIndexes<4>;
    case 8:
        return UnpackIndexes<8>;
    case 16:
        return UnpackWords<std::uint16_t>;
    case 24:
        return UnpackBytes;
    default:
        return UnpackWords<std::uint32_t>;
    }
}

class TBmpReader : public TImageReader
{
public:
    TBmpReader(TFile file, const TBmpHeader& header)
        : m_file(std::move(file)), m_header(header), m_unpack(UnpackOf(header.BitCount)),
          m_stride(header.Stride()),
          m_blockRows(
              static_cast<int>(std::clamp(BlockBytes / m_stride, 1L, long{header.Size.Height}))),
          m_block(static_cast<std::size_t>(m_blockRows * m_stride) + 1)
    {
        std::fseek(m_file.get(), header.PixelOffset, SEEK_SET);
        if (std::fgetc(m_file.get()) == EOF)
            throw EImageFormat("BMP: there are no pixels");
    }

    TSize Size() const override { return m_header.Size; }

    void ReadRow(int y, TPixel* row) override
    {
        const int index = m_header.IsTopDown ? y : m_header.Size.Height - 1 - y;
        if (index < m_first || index >= m_end)
            ReadBlock(y, index);
        m_unpack(m_header, m_block.data() + (index - m_first) * m_stride, row);
        m_last = y;
    }

private:
    // Neighbouring rows are read in large blocks; when rows are left out, each is read by itself.
    void ReadBlock(int y, int index)
    {
        const int rows = y == m_last + 1 ? std::min(m_blockRows, m_header.Size.Height - y) : 1;
        m_first = m_header.IsTopDown ? index : index - rows + 1;
        m_end = m_first + rows;
        std::fseek(m_file.get(), m_header.PixelOffset + m_first * m_stride, SEEK_SET);
        const auto wanted = static_cast<std::size_t>(rows * m_stride);
        const std::size_t read = std::fread(m_block.data(), 1, wanted, m_file.get());
        std::fill_n(m_block.begin() + static_cast<std::ptrdiff_t>(read), wanted - read, 0);
    }

    TFile m_file;
    TBmpHeader m_header;
    TUnpack m_unpack;
    long m_stride;
    int m_blockRows;
    std::vector<std::uint8_t> m_block; // the rows [m_first, m_end) of the file
    int m_first = 0, m_end = 0;
    int m_last = -1; // the row asked for before
};

// The bytes of a file, one after the other.
class TByteStream
{
public:
    explicit TByteStream(std::FILE* file) : m_file(file), m_buffer(1 << 16) {}

    bool IsAtEnd() const { return m_isAtEnd; }

    // 0 behind the end.
    std::uint8_t Next()
    {
        if (m_next == m_end)
            Fill();
        return m_isAtEnd ? 0 : m_buffer[m_next++];
    }

private:
    void Fill()
    {
        m_next = 0;
        m_end = std::fread(m_buffer.data(), 1, m_buffer.size(), m_file);
        m_isAtEnd = m_end == 0;
    }

    std::FILE* m_file;
    std::vector<std::uint8_t> m_buffer;
    std::size_t m_next = 0, m_end = 0;
    bool m_isAtEnd = false;
};

// Decodes run lengths of 4 or 8 bits. Runs are cut off at the picture's edge; pixels that no run
// sets have index 0.
class TRunLengthDecoder
{
public:
    TRunLengthDecoder(std::FILE* file, TSize size, int bitCount)
        : m_stream(file), m_size(size), m_bitCount(bitCount),
          m_indexes(static_cast<std::size_t>(size.Width) * size.Height)
    {
    }

    // The rows in the file's order.
    std::vector<std::uint8_t> Decode()
    {
        while (m_y < m_size.Height && !m_stream.IsAtEnd()) {
            const int count = m_stream.Next();
            const int value = m_stream.Next();
            if (m_stream.IsAtEnd())
                break;
            if (count > 0)
                Run(count, value);
            else
                Escape(value);
        }
        return std::move(m_indexes);
    }

private:
    void Escape(int code)
    {
        switch (code) {
        case 0:
            return StartRow(m_y + 1);
        case 1:
            return StartRow(m_size.Height);
        case 2: {
            const int right = m_stream.Next();
            m_x = std::min(m_x + right, m_size.Width);
            m_y += m_stream.Next();
            return;
        }
        default:
            return Literal(code);
        }
    }

    void StartRow(int y)
    {
        m_x = 0;
        m_y = y;
    }

    void Run(int count, int value)
    {
        for (int i = 0; i < count; ++i)
            Put(IndexIn(value, i));
    }

    // The indexes themselves, filled up to an even number of bytes.
    void Literal(int count)
    {
        const int perByte = 8 / m_bitCount;
        const int bytes = (count + perByte - 1) / perByte;
        for (int i = 0; i < count;) {
            const int value = m_stream.Next();
            for (const int end = std::min(i + perByte, count); i < end; ++i)
                Put(IndexIn(value, i));
        }
        if (bytes % 2 != 0)
            m_stream.Next();
    }

    // Of 4 bits the upper half comes first.
    int IndexIn(int value, int i) const
    {
        if (m_bitCount == 8)
            return value;
        return i % 2 == 0 ? value >> 4 : value & 15;
    }

    void Put(int index)
    {
        if (m_x < m_size.Width)
            m_indexes[static_cast<std::size_t>(m_y) * m_size.Width + m_x++] =
                static_cast<std::uint8_t>(index);
    }

    TByteStream m_stream;
    TSize m_size;
    int m_bitCount;
    int m_x = 0, m_y = 0;
    std::vector<std::uint8_t> m_indexes;
};

class TRunLengthReader : public TImageReader
{
public:
    TRunLengthReader(const TBmpHeader& header, std::vector<std::uint8_t> indexes)
        : m_header(header), m_indexes(std::move(indexes))
    {
    }

    TSize Size() const override { return m_header.Size; }

    void ReadRow(int y, TPixel* row) override
    {
        const int index = m_header.IsTopDown ? y : m_header.Size.Height - 1 - y;
        const std::size_t start = static_cast<std::size_t>(index) * m_header.Size.Width;
        UnpackIndexes<8>(m_header, m_indexes.data() + start, row);
    }

private:
    TBmpHeader m_header;
    std::vector<std::uint8_t> m_indexes;
};

std::unique_ptr<TImageReader> OpenRunLength(std::FILE* file, const TBmpHeader& header)
{
    if (std::int64_t{header.Size.Width} * header.Size.Height > MaxRunLengthPixels)
        throw EImageFormat("BMP: too large for run lengths");
    std::fseek(file, header.PixelOffset, SEEK_SET);
    TRunLengthDecoder decoder(file, header.Size, header.BitCount);
    return std::make_unique<TRunLengthReader>(header, decoder.Decode());
}

} // namespace

std::unique_ptr<TImageReader> OpenBmp(TFile file, TDecoding)
{
    const TBmpHeader header(file.get());
    if (header.IsRunLength)
        return OpenRunLength(file.get(), header);
    return std::make_unique<TBmpReader>(std::move(file), header);
}

TSize BmpSize(TFile file)
{
    return TBmpHeader(file.get()).Size;
}

} // namespace murala
