// Composing a 1920 x 1080 desktop picture from pictures in memory and from files, and the tint
// alone. Inputs: a 1600 x 1200 picture of smooth colours with a fine texture, made by the program;
// as a file it is a JPEG of quality 90 or a 32-bit BMP.
#include "uCompose.h"
#include "uJpegFile.h"
#include "uPath.h"

#include <benchmark/benchmark.h>

using namespace murala;

namespace
{

constexpr TSize Screen = {1920, 1080};

const TBitmap& Photo()
{
    static const TBitmap photo = [] {
        TBitmap bitmap(1600, 1200);
        for (int y = 0; y < bitmap.Height(); ++y)
            for (int x = 0; x < bitmap.Width(); ++x)
                bitmap.Row(y)[x] = static_cast<TPixel>((x / 7) << 16 | (y / 5) << 8 | (x ^ y) % 64);
        return bitmap;
    }();
    return photo;
}

TMuWallpaper Item(TDisplayMode mode, TGammaStyle style)
{
    TMuWallpaper item;
    item.DisplayMode = mode;
    item.GammaStyle = style;
    item.SetStartTint({-100, -100, -100});
    item.SetEndTint({100, 100, 100});
    return item;
}

void ComposeInMemory(benchmark::State& state)
{
    const auto mode = static_cast<TDisplayMode>(state.range(0));
    const TMuWallpaper item = Item(mode, gsNone);
    for (auto _ : state)
        benchmark::DoNotOptimize(ComposePicture(*ReadBitmap(Photo()), item, Screen, {}));
    state.SetLabel(std::string(DisplayModeNames[mode]) + ", 1600x1200 in memory");
}
BENCHMARK(ComposeInMemory)->DenseRange(dmTiled, dmFitVertically)->Unit(benchmark::kMillisecond);

void ComposeFile(benchmark::State& state, const char* extension,
                 void (*save)(const std::string& name))
{
    const std::string name =
        PathText(std::filesystem::temp_directory_path() / "murala-bench") + extension;
    save(name);
    const TMuWallpaper item = Item(dmStretched, gsSolid);
    for (auto _ : state)
        benchmark::DoNotOptimize(ComposePicture(*OpenImage(name), item, Screen, {}));
    state.SetLabel("Stretched, Solid, 1600x1200 file");
    DeleteFileIfPresent(name);
}
BENCHMARK_CAPTURE(ComposeFile, Jpeg, ".jpg", [](const std::string& name) {
    SaveJpegFile(Photo(), name, 90);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ComposeFile, Bmp, ".bmp", [](const std::string& name) {
    SaveBitmapFile(Photo(), name);
})->Unit(benchmark::kMillisecond);

void Tint(benchmark::State& state)
{
    TBitmap bitmap = ComposePicture(*ReadBitmap(Photo()), Item(dmStretched, gsNone), Screen, {});
    const auto style = static_cast<TGammaStyle>(state.range(0));
    const TMuWallpaper item = Item(dmStretched, style);
    for (auto _ : state)
        ApplyTint(bitmap, item);
    state.SetLabel(std::string(GammaStyleNames[style]) + ", 1920x1080 in memory");
}
BENCHMARK(Tint)->DenseRange(gsSolid, gsVertical)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
