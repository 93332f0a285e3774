// thumbnails [ROUNDS]: forty JPEGs of 12 megapixels to thumbnails, by the cache and by a plain loop
// over libjpeg-turbo (1/8 scale, fast DCT, nearest to 64 x 48, quality 50), in turn in one run. The
// median of the rounds' ratios counts. Tells, too, how much memory the cache took above the start
// and the longest single step. Ends with 1 when a limit is passed.
#include "uJpegFile.h"
#include "uThumbnailCache.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <jpeglib.h>
#include <malloc.h>

using namespace murala;

namespace
{

namespace fs = std::filesystem;
using TMilliseconds = std::chrono::duration<double, std::milli>;

constexpr int Pictures = 40;
constexpr double MaxRatio = 1.05;
constexpr long MaxKilobytes = 20L * 1024;

// Smooth areas, edges and grain, the same on every run.
TBitmap MakePhoto()
{
    TBitmap bitmap(4000, 3000);
    std::uint32_t noise = 1;
    for (int y = 0; y < bitmap.Height(); ++y)
        for (int x = 0; x < bitmap.Width(); ++x) {
            noise = noise * 1664525U + 1013904223U;
            const double wave = std::sin(x * 0.004 + std::sin(y * 0.003) * 2) * 70;
            const int rest = static_cast<int>(noise >> 28U) - 8 + (x / 190 + y / 170) % 2 * 24;
            const auto channel = [&](double level) {
                return static_cast<TPixel>(std::clamp<int>(level + wave + rest, 0, 255));
            };
            bitmap.Row(y)[x] = channel(y * 0.05) << 16U | channel(110) << 8U | channel(x * 0.03);
        }
    return bitmap;
}

std::vector<std::string> MakePictures(const fs::path& folder)
{
    std::vector<std::string> names;
    const TBitmap photo = MakePhoto();
    for (int i = 0; i < Pictures; ++i) {
        names.push_back(folder / (std::to_string(i) + ".jpg"));
        if (i == 0)
            SaveJpegFile(photo, names[0], 85);
        else
            fs::copy_file(names[0], names.back(), fs::copy_options::overwrite_existing);
    }
    return names;
}

std::vector<JSAMPLE> DecodeToThumbnail(const char* name)
{
    std::FILE* file = std::fopen(name, "rb");
    if (!file)
        std::exit(2);
    jpeg_decompress_struct info;
    jpeg_error_mgr error;
    info.err = jpeg_std_error(&error);
    jpeg_create_decompress(&info);
    jpeg_stdio_src(&info, file);
    jpeg_read_header(&info, TRUE);
    info.scale_num = 1;
    info.scale_denom = 8;
    info.dct_method = JDCT_IFAST;
    info.do_fancy_upsampling = FALSE;
    jpeg_start_decompress(&info);
    const std::size_t stride = std::size_t{3} * info.output_width;
    std::vector<JSAMPLE> picture(stride * info.output_height);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = &picture[stride * info.output_scanline];
        jpeg_read_scanlines(&info, &row, 1);
    }
    std::vector<JSAMPLE> thumbnail;
    for (std::size_t y = 0; y < 48; ++y)
        for (std::size_t x = 0; x < 64; ++x) {
            const std::size_t at =
                y * info.output_height / 48 * stride + x * info.output_width / 64 * 3;
            thumbnail.insert(thumbnail.end(), &picture[at], &picture[at] + 3);
        }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    std::fclose(file);
    return thumbnail;
}

void Encode(std::vector<JSAMPLE> thumbnail, const char* name)
{
    std::FILE* file = std::fopen(name, "wb");
    if (!file)
        std::exit(2);
    jpeg_compress_struct info;
    jpeg_error_mgr error;
    info.err = jpeg_std_error(&error);
    jpeg_create_compress(&info);
    jpeg_stdio_dest(&info, file);
    info.image_width = 64;
    info.image_height = 48;
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 50, TRUE);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = &thumbnail[std::size_t{3} * 64 * info.next_scanline];
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::fclose(file);
}

double PlainLoop(const std::vector<std::string>& names, const fs::path& folder)
{
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < names.size(); ++i)
        Encode(DecodeToThumbnail(names[i].c_str()),
               (folder / (std::to_string(i) + ".plain.jpg")).c_str());
    return TMilliseconds(std::chrono::steady_clock::now() - start).count();
}

// As the window does it while it is idle.
double Cache(TMuWallpaperList& list, double& longestStep)
{
    const auto start = std::chrono::steady_clock::now();
    TThumbnailCache cache(list);
    TThumbnailRefresh refresh(cache, list);
    for (auto last = start; refresh.Step();) {
        const auto now = std::chrono::steady_clock::now();
        longestStep = std::max(longestStep, TMilliseconds(now - last).count());
        last = now;
    }
    if (!refresh.Errors().empty() || !cache.TakeNotice().empty())
        std::exit(2);
    return TMilliseconds(std::chrono::steady_clock::now() - start).count();
}

// "VmHWM" or "VmRSS" of this process.
long Kilobytes(const char* name)
{
    const std::string status = ReadWholeFile("/proc/self/status");
    return std::atol(status.c_str() + status.find(name) + 6);
}

double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
    const fs::path folder = fs::temp_directory_path() / "murala-thumbnails";
    fs::create_directories(folder);
    const auto names = MakePictures(folder);
    TMuWallpaperList list;
    list.SetThumbnailFolder((folder / "Thumbnails").string());
    for (const std::string& name : names)
        list.Add(std::make_unique<TMuWallpaper>(name));
    malloc_trim(0);                                // what the making of the pictures took
    std::ofstream("/proc/self/clear_refs") << '5'; // the highest value counts from here on
    const long start = Kilobytes("VmRSS:");
    double longestStep = 0;
    std::vector<double> plain, cache = {Cache(list, longestStep)}, ratios;
    const long taken = Kilobytes("VmHWM:") - start;
    for (int round = 0; round < rounds; ++round) {
        plain.push_back(PlainLoop(names, folder));
        cache.push_back(Cache(list, longestStep));
        ratios.push_back(cache.back() / plain.back());
    }
    const double ratio = Median(ratios);
    std::printf("%d thumbnails: cache %.0f ms, plain loop %.0f ms, ratio %.3f (limit %.2f), "
                "longest step %.1f ms, %ld KB above the start (limit %ld)\n",
                Pictures, Median(cache), Median(plain), ratio, MaxRatio, longestStep, taken,
                MaxKilobytes);
    fs::remove_all(folder);
    return ratio <= MaxRatio && taken <= MaxKilobytes ? 0 : 1;
}
