#include "uIconFile.h"

#include "uImageFile.h"
#include "uPath.h"
#include "uSafeFile.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace murala
{

namespace
{

// How an icon file begins. Numbers lie with their lowest byte first, as on every machine of ours.
#pragma pack(push, 1)
struct TDirectory {
    std::uint16_t Reserved, Type, Count;
};
struct TEntry {
    std::uint8_t Width, Height; // 0 stands for 256
    std::uint8_t Colors, Reserved;
    std::uint16_t Planes, BitCount;
    std::uint32_t Size, Offset;
};
#pragma pack(pop)

template<class T>
bool ReadAt(const std::string& content, std::size_t at, T& value)
{
    if (at + sizeof value > content.size())
        return false;
    std::memcpy(&value, content.data() + at, sizeof value);
    return true;
}

int Side(std::uint8_t stored)
{
    return stored == 0 ? 256 : stored;
}

// The largest picture that lies in the file; of several the one with most colours.
std::optional<TEntry> FindLargest(const std::string& content)
{
    TDirectory directory{};
    if (!ReadAt(content, 0, directory) || directory.Reserved != 0 || directory.Type != 1)
        return std::nullopt;
    std::optional<TEntry> largest;
    const auto rank = [](const TEntry& entry) {
        return std::pair(Side(entry.Width) * Side(entry.Height), entry.BitCount);
    };
    for (std::size_t i = 0; i < directory.Count; i++) {
        TEntry entry{};
        const bool isWhole = ReadAt(content, sizeof directory + i * sizeof entry, entry) &&
                             std::uint64_t{entry.Offset} + entry.Size <= content.size();
        if (isWhole && (!largest || rank(entry) > rank(*largest)))
            largest = entry;
    }
    return largest;
}

} // namespace

TBitmap LoadIconFile(const std::string& fileName)
try {
    // Reading a pipe or a device might never end.
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(NativePath(fileName), ignored))
        throw EInvalidImage(fileName, "there is no such file");
    const std::string content = ReadWholeFile(fileName);
    if (const auto entry = FindLargest(content)) {
        const TSize size{Side(entry->Width), Side(entry->Height)};
        if (auto picture = DecodeIcon({size, content.substr(entry->Offset, entry->Size)}))
            return std::move(*picture);
    }
    throw EInvalidImage(fileName, "not an icon");
} catch (const EFileError& error) {
    throw EInvalidImage(fileName, error.what());
}

} // namespace murala
