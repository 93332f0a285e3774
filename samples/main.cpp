// murala-samples FOLDER [NAME]: paints the sample pictures, or the one of that name.
#include "uJpegFile.h"
#include "uPath.h"
#include "uScenes.h"

#include <cstdio>
#include <exception>
#include <string_view>

using namespace murala;

namespace
{

void SaveBitmap(const TBitmap& bitmap, const std::string& name)
{
    SaveBitmapFile(bitmap, name);
}

void SaveJpeg(const TBitmap& bitmap, const std::string& name)
{
    SaveJpegFile(bitmap, name, 88);
}

constexpr TSize Screen = {1920, 1200};

struct TSample {
    std::string_view Name;
    std::unique_ptr<TScene> (*Make)();
    TSize Size;
    void (*Save)(const TBitmap& bitmap, const std::string& name);
};
constexpr TSample Samples[] = {{"Landscape.jpg", MakeLandscape, Screen, SaveJpeg},
                               {"Planet.jpg", MakePlanet, Screen, SaveJpeg},
                               {"Planet02.jpg", MakeOcean, {1600, 1000}, SaveJpeg},
                               {"Abstract.jpg", MakeAbstract, Screen, SaveJpeg},
                               {"Waves.bmp", MakeWaves, {200, 200}, SaveBitmap}};

} // namespace

int main(int argc, char** argv)
try {
    if (argc < 2 || argc > 3) {
        std::fputs("usage: murala-samples FOLDER [NAME]\n", stderr);
        return 2;
    }
    for (const TSample& sample : Samples)
        if (argc == 2 || sample.Name == argv[2])
            sample.Save(Paint(*sample.Make(), sample.Size), JoinPath(argv[1], sample.Name));
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
