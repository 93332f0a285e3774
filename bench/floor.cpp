// floor IMAGE WIDTHxHEIGHT OUT.bmp: the least that any program has to do for a stretched, evenly
// tinted desktop picture. A JPEG is decoded row by row with libjpeg's defaults; of a 24-bit
// bottom-up BMP only the needed rows are read. No error is handled. murala-compose is measured
// against it.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <jpeglib.h>
#include <unistd.h>

namespace
{

constexpr int Tint = -64;

// Bytes of a picture's row in the order red, green, blue or blue, green, red.
struct TTarget {
    int Width, Height;
    std::vector<std::uint8_t> File;
    std::vector<std::size_t> Columns; // byte positions in the source's row
    std::uint8_t Table[256];

    TTarget(int width, int height)
        : Width(width), Height(height), File(54 + std::size_t{4} * width * height)
    {
        for (int c = 0; c < 256; ++c)
            Table[c] = static_cast<std::uint8_t>(c * (Tint + 256) / 256);
        const std::uint32_t fields[] = {54, 40, static_cast<std::uint32_t>(width),
                                        static_cast<std::uint32_t>(height), 1 | 32 << 16};
        std::memcpy(File.data(), "BM", 2);
        std::memcpy(&File[10], fields, sizeof fields);
    }

    void SetSourceWidth(int width)
    {
        for (std::int64_t x = 0; x < Width; ++x)
            Columns.push_back(static_cast<std::size_t>(3 * (x * width / Width)));
    }

    void Sample(int y, const std::uint8_t* row, int first, int last)
    {
        std::uint8_t* to = &File[54 + std::size_t{4} * Width * (Height - 1 - y)];
        for (const std::size_t column : Columns) {
            const std::uint8_t* from = row + column;
            to[0] = Table[from[first]];
            to[1] = Table[from[1]];
            to[2] = Table[from[last]];
            to += 4;
        }
    }
};

void DecodeJpeg(std::FILE* file, TTarget& target)
{
    jpeg_decompress_struct info;
    jpeg_error_mgr error;
    info.err = jpeg_std_error(&error);
    jpeg_create_decompress(&info);
    jpeg_stdio_src(&info, file);
    jpeg_read_header(&info, TRUE);
    jpeg_start_decompress(&info);
    const int width = static_cast<int>(info.output_width);
    const int height = static_cast<int>(info.output_height);
    std::vector<std::uint8_t> row(std::size_t{3} * width);
    target.SetSourceWidth(width);
    JSAMPROW samples = row.data();
    int y = 0;
    for (int line = 0; line < height; ++line) {
        jpeg_read_scanlines(&info, &samples, 1);
        for (; y < target.Height && std::int64_t{y} * height / target.Height == line; ++y)
            target.Sample(y, row.data(), 2, 0);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
}

void ReadBmp(std::FILE* file, TTarget& target)
{
    const int number = fileno(file);
    std::int32_t offset, size[2];
    (void)!pread(number, &offset, sizeof offset, 10);
    (void)!pread(number, size, sizeof size, 18);
    target.SetSourceWidth(size[0]);
    const std::size_t stride = (std::size_t{3} * size[0] + 3) / 4 * 4;
    std::vector<std::uint8_t> row(stride);
    for (int y = 0; y < target.Height; ++y) {
        const std::int64_t line = std::int64_t{y} * size[1] / target.Height;
        (void)!pread(number, row.data(), stride,
                     static_cast<off_t>(offset + (size[1] - 1 - line) * stride));
        target.Sample(y, row.data(), 0, 2);
    }
}

} // namespace

int main(int argc, char** argv)
{
    int width, height;
    if (argc != 4 || std::sscanf(argv[2], "%dx%d", &width, &height) != 2)
        return 2;
    TTarget target(width, height);
    std::FILE* file = std::fopen(argv[1], "rb");
    if (!file)
        return 1;
    const bool isBmp = std::fgetc(file) == 'B';
    std::rewind(file);
    (isBmp ? ReadBmp : DecodeJpeg)(file, target);
    std::fclose(file);
    std::FILE* out = std::fopen(argv[3], "wb");
    if (!out || std::fwrite(target.File.data(), 1, target.File.size(), out) != target.File.size())
        return 1;
    return std::fclose(out);
}
