// Common to the fuzz targets of picture files: reads a file in memory to its end, every third row
// only.
#pragma once

#include "uImageFile.h"
#include "uSafeFile.h"

#include <cstdio>
#include <vector>

namespace murala
{

inline constexpr std::size_t MaxFileSize = 1 << 16;
inline constexpr std::int64_t MaxFuzzedPixels = 1 << 16; // larger pictures only take longer

inline TFile FileInMemory(const std::uint8_t* data, std::size_t size)
{
    return TFile(fmemopen(const_cast<std::uint8_t*>(data), size, "rb"));
}

template<typename TOpen, typename TGetSize>
void ReadPicture(const std::uint8_t* data, std::size_t size, TOpen open, TGetSize getSize)
try {
    if (size == 0 || size > MaxFileSize)
        return;
    const TSize dimensions = getSize(FileInMemory(data, size));
    if (std::int64_t{dimensions.Width} * dimensions.Height > MaxFuzzedPixels)
        return;
    const auto reader = open(FileInMemory(data, size), TDecoding{});
    std::vector<TPixel> row(static_cast<std::size_t>(reader->Size().Width));
    for (int y = 0; y < reader->Size().Height; y += 3)
        reader->ReadRow(y, row.data());
} catch (const EImageFormat&) {
}

} // namespace murala
