// Drawing a calendar with real text onto a desktop picture in memory, as the calendar's editor does
// at every step of a slider, and the icon box behind two hundred icons. Inputs: the settings out of
// the box with borders, and a calendar over the whole picture.
#include "uIconBox.h"
#include "uMuCalendar.h"

#include <benchmark/benchmark.h>

#include <algorithm>

using namespace murala;

namespace
{

constexpr int Width = 1920, Height = 1080;

TBitmap Grey()
{
    TBitmap bitmap(Width, Height);
    std::fill_n(bitmap.Row(0), Width * Height, 0x808080U);
    return bitmap;
}

void Render(benchmark::State& state, TSize size)
{
    const auto text = NewTextDrawing();
    TMuCalendar calendar(*text, EnglishDateNames(), 46000);
    calendar.Settings = DefaultCalendarSettings();
    calendar.Settings.CalendarBorders = true;
    calendar.Settings.CalendarWidth = size.Width;
    calendar.Settings.CalendarHeight = size.Height;
    calendar.Picture = Grey();
    TBitmap target = Grey();
    for (auto _ : state)
        calendar.Render(target);
    state.SetLabel("1920x1080 in memory");
}
BENCHMARK_CAPTURE(Render, OutOfTheBox, TSize{320, 240})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Render, WholePicture, TSize{Width, Height})->Unit(benchmark::kMillisecond);

void IconBox(benchmark::State& state)
{
    std::vector<TRect> region;
    for (int i = 0; i < 200; ++i)
        region.push_back({i % 20 * 90, i / 20 * 100, i % 20 * 90 + 70, i / 20 * 100 + 80});
    TIconBoxSettings settings;
    settings.OnlyIcons = state.range(0) != 0;
    TBitmap picture = Grey();
    for (auto _ : state)
        DrawIconBox(picture, settings, region);
    state.SetLabel(state.range(0) != 0 ? "200 icons alone" : "around 200 icons");
}
BENCHMARK(IconBox)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
