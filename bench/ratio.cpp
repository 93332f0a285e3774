// ratio [PAIRS]: measures murala-compose as a whole process against the floor program that lies
// beside it: a 12-megapixel picture, once as JPEG and once as 24-bit BMP, stretched to 1920 x 1080
// with a solid tint. Then murala-compose with a calendar against itself without. The two run in
// turn; the median of the pairs' ratios counts. Ends with 1 when a ratio is over its limit.
#include "uJpegFile.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>

using namespace murala;

namespace
{

namespace fs = std::filesystem;

constexpr int Width = 4000, Height = 3000;

// Smooth areas, edges and grain, the same on every run.
TBitmap MakePhoto()
{
    TBitmap bitmap(Width, Height);
    std::uint32_t noise = 1;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x) {
            noise = noise * 1664525U + 1013904223U;
            const double wave = std::sin(x * 0.004 + std::sin(y * 0.003) * 2) * 70;
            const int grain = static_cast<int>(noise >> 28U) - 8;
            const int edge = (x / 190 + y / 170) % 2 * 24;
            const auto channel = [&](double level) {
                return static_cast<TPixel>(std::clamp<int>(level + wave + grain + edge, 0, 255));
            };
            bitmap.Row(y)[x] = channel(y * 0.05) << 16U | channel(110) << 8U | channel(x * 0.03);
        }
    return bitmap;
}

void SaveBmp24(const TBitmap& bitmap, const std::string& name)
{
    const std::uint32_t fields[] = {0, 0, 54, 40, Width, Height, 1 | 24 << 16};
    std::string content(54, '\0');
    content.replace(0, 2, "BM");
    content.replace(2, sizeof fields, reinterpret_cast<const char*>(fields), sizeof fields);
    for (int y = Height; y-- > 0;)
        for (int x = 0; x < Width; ++x)
            content.append(reinterpret_cast<const char*>(&bitmap.Row(y)[x]), 3);
    ReplaceWholeFile(name, content, TFlush::ToSystemCache);
}

// Milliseconds that the program runs.
double Measure(std::vector<std::string> words)
{
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    int status = -1;
    if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 ||
        waitpid(process, &status, 0) < 0 || status != 0) {
        std::fprintf(stderr, "%s failed\n", arguments[0]);
        std::exit(2);
    }
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    return time.count();
}

double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

// The two commands in turn.
bool Compare(const std::string& what, const std::vector<std::string>& ours,
             const std::vector<std::string>& floor, double limit, int pairs)
{
    std::vector<double> floors, composes, ratios;
    for (int pair = 0; pair < pairs; ++pair) {
        floors.push_back(Measure(floor));
        composes.push_back(Measure(ours));
        ratios.push_back(composes.back() / floors.back());
    }
    const double ratio = Median(ratios);
    std::printf("%s: %.1f ms against %.1f ms, ratio %.3f (limit %.2f)\n", what.c_str(),
                Median(composes), Median(floors), ratio, limit);
    return ratio <= limit;
}

bool CompareWithFloor(const fs::path& programs, const std::string& image, double limit, int pairs)
{
    return Compare("murala-compose against the floor, " + fs::path(image).extension().string(),
                   {programs / "murala-compose", image, "2", "1920x1080", image + ".compose.bmp",
                    "--tint", "1", "-64", "-64", "-64", "0", "0", "0"},
                   {programs / "floor", image, "1920x1080", image + ".floor.bmp"}, limit, pairs);
}

bool CompareCalendar(const fs::path& programs, const std::string& image, double limit, int pairs)
{
    const std::string ini = image + ".ini";
    ReplaceWholeFile(ini, "[Options]\r\nCalendarBorders=1\r\n", TFlush::ToSystemCache);
    const std::vector<std::string> without = {programs / "murala-compose", image, "2", "1920x1080",
                                              image + ".compose.bmp"};
    std::vector<std::string> with = without;
    with.insert(with.end(), {"--calendar", ini});
    return Compare("with a calendar against without, " + fs::path(image).extension().string(), with,
                   without, limit, pairs);
}

} // namespace

int main(int argc, char** argv)
{
    const int pairs = argc > 1 ? std::atoi(argv[1]) : 25;
    const fs::path folder = fs::temp_directory_path() / "murala-ratio";
    fs::create_directories(folder);
    const std::string jpeg = folder / "photo.jpg", bmp = folder / "photo.bmp";
    const TBitmap photo = MakePhoto();
    SaveJpegFile(photo, jpeg, 90);
    SaveBmp24(photo, bmp);
    const fs::path programs = fs::canonical(argv[0]).parent_path();
    const bool isFast[] = {CompareWithFloor(programs, jpeg, 1.15, pairs),
                           CompareWithFloor(programs, bmp, 1.3, pairs),
                           CompareCalendar(programs, jpeg, 1.3, pairs)};
    fs::remove_all(folder);
    return std::ranges::find(isFast, false) == std::end(isFast) ? 0 : 1;
}
