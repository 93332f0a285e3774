// The wallpaper list at 100,000 items, about 180 bytes a line.
#include "uLocale.h"
#include "uPath.h"
#include "uSettings.h"
#include "uWallpaper.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace murala;

namespace
{

constexpr int ListCount = 100'000;
constexpr int AddedCount = 10'000;

std::unique_ptr<TMuWallpaper> NewItem(int number)
{
    const std::string folder = "/home/me/Pictures/Album " + std::to_string(number % 500) + "/";
    auto item = std::make_unique<TMuWallpaper>(
        folder + "Photograph_" + std::to_string(number * 7919LL % 1'000'003) + ".jpg");
    item->Title = MakeTitle(item->FileName(), {});
    item->DisplayMode = dmStretched;
    item->Category = folder;
    return item;
}

void Fill(TMuWallpaperList& list)
{
    for (int i = 0; i < ListCount; ++i)
        list.Add(NewItem(i));
}

std::string FilePath(const char* name)
{
    return PathText(std::filesystem::temp_directory_path() / name);
}

void SaveList(benchmark::State& state)
{
    TMuWallpaperList list;
    Fill(list);
    const std::string path = FilePath("murala-bench-save");
    for (auto _ : state)
        list.SaveToFile(path);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(
                                                     std::filesystem::file_size(NativePath(path))));
    DeleteFileIfPresent(path);
}

void LoadList(benchmark::State& state)
{
    const std::string path = FilePath("murala-bench-load");
    TMuWallpaperList list;
    Fill(list);
    list.SaveToFile(path);
    for (auto _ : state)
        list.LoadFromFile(path);
    DeleteFileIfPresent(path);
}

// As adding a folder does: refuse what is there, make the title, append.
void AddFiles(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto list = std::make_unique<TMuWallpaperList>();
        Fill(*list);
        state.ResumeTiming();
        for (int i = 0; i < 2 * AddedCount; ++i) { // every second one is known already
            auto item = NewItem(ListCount - AddedCount + i);
            if (!list->ContainsFileName(item->FileName()))
                list->Add(std::move(item));
        }
        if (list->Count() != ListCount + AddedCount)
            std::abort();
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
}

void DeleteHalf(benchmark::State& state)
{
    std::vector<int> indexes(ListCount / 2);
    for (int i = 0; i < ListCount / 2; ++i)
        indexes[static_cast<std::size_t>(i)] = 2 * i;
    for (auto _ : state) {
        state.PauseTiming();
        TMuWallpaperList list;
        Fill(list);
        state.ResumeTiming();
        list.DeleteMany(indexes);
    }
}

void SortByCategory(benchmark::State& state)
{
    TMuWallpaperList list;
    Fill(list);
    const std::unique_ptr<TLocale> locale = NewLocale();
    bool ascending = true;
    for (auto _ : state) {
        list.Sort(lcCategory, ascending,
                  [&](const std::string& text) { return locale->SortKey(text); });
        ascending = !ascending;
    }
}

void NumberThumbnails(benchmark::State& state)
{
    TMuWallpaperList list;
    list.SetThumbnailFolder(FilePath("murala-bench-thumbnails"));
    for (auto _ : state) {
        state.PauseTiming();
        list.Clear();
        Fill(list);
        state.ResumeTiming();
        for (int i = 0; i < ListCount; ++i)
            benchmark::DoNotOptimize(list.Item(i).ThumbnailFileName());
    }
    std::filesystem::remove(NativePath(list.ThumbnailFolder));
}

void SaveAllSettings(benchmark::State& state)
{
    const std::string path = FilePath("murala-bench.ini");
    TMuSettings settings;
    for (auto _ : state) {
        TIniFile file = TIniFile::Load(path);
        settings.Window.PreviewSize = settings.Window.PreviewSize == psMini ? psNormal : psMini;
        SaveSettings(file, settings, {ListCount, "/home/me/a.jpg", 0}, AllSaveFlags);
        file.Save(path);
    }
    DeleteFileIfPresent(path);
}

} // namespace

BENCHMARK(SaveList)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LoadList)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(AddFiles)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DeleteHalf)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SortByCategory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(NumberThumbnails)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SaveAllSettings)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_MAIN();
