#include "uWallpaper.h"

#include "uListColumn.h"
#include "uListLine.h"
#include "uPath.h"
#include "uSafeFile.h"
#include "uText.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <numeric>
#include <tuple>

namespace murala
{

namespace
{

constexpr std::string_view LineEnd = "\r\n";

// What an item is sorted by: the first, and the second where the first ones are equal.
struct TSortKeys {
    const std::string* First; // of every item with that text
    std::string Second;
    bool operator<(const TSortKeys& other) const
    {
        return std::tie(*First, Second) < std::tie(*other.First, other.Second);
    }
};

std::string ThumbnailPath(const std::string& folder, std::int32_t number)
{
    return folder + "Thumbnail." + std::to_string(number) + ".jpg";
}

} // namespace

std::uint64_t TMuWallpaper::NewId()
{
    static std::uint64_t last = 0;
    return ++last;
}

std::string TMuWallpaper::ThumbnailFileName()
{
    assert(Owner);
    if (m_thumbnailNumber == 0) {
        Owner->AssignThumbnailNumber(*this);
        DeleteThumbnailFile(); // of an item that had the number before
    }
    return ThumbnailPath(Owner->ThumbnailFolder, m_thumbnailNumber);
}

void TMuWallpaper::DeleteThumbnailFile()
{
    assert(Owner);
    if (m_thumbnailNumber != 0)
        DeleteFileIfPresent(ThumbnailPath(Owner->ThumbnailFolder, m_thumbnailNumber));
}

int TMuWallpaper::IndexInList() const
{
    return Owner ? Owner->IndexOf(this) : -1;
}

void TMuWallpaper::SetStartTint(TTint tint)
{
    GammaStartRed = tint.Red;
    GammaStartGreen = tint.Green;
    GammaStartBlue = tint.Blue;
}

void TMuWallpaper::SetEndTint(TTint tint)
{
    GammaEndRed = tint.Red;
    GammaEndGreen = tint.Green;
    GammaEndBlue = tint.Blue;
}

TMuWallpaperList::TMuWallpaperList() = default;
TMuWallpaperList::~TMuWallpaperList() = default;

TMuWallpaper& TMuWallpaperList::Add(std::unique_ptr<TMuWallpaper> item)
{
    TMuWallpaper& added = *item;
    m_items.push_back(nullptr); // should memory run out, then before anything was changed
    try {
        m_byFileName.emplace(added.m_fileName, &added);
    } catch (...) {
        m_items.pop_back();
        throw;
    }
    m_items.back() = std::move(item);
    added.Owner = this;
    if (m_largestNumber)
        m_largestNumber = std::max(*m_largestNumber, added.m_thumbnailNumber);
    return added;
}

std::unique_ptr<TMuWallpaper> TMuWallpaperList::Delete(int index)
{
    return std::move(DeleteMany({index}).front());
}

std::vector<std::unique_ptr<TMuWallpaper>>
TMuWallpaperList::DeleteMany(const std::vector<int>& indexes)
{
    std::vector<std::unique_ptr<TMuWallpaper>> deleted;
    deleted.reserve(indexes.size());
    for (int index : indexes) {
        deleted.push_back(std::move(m_items.at(static_cast<std::size_t>(index))));
        Release(*deleted.back());
    }
    std::erase(m_items, nullptr);
    return deleted;
}

void TMuWallpaperList::Release(TMuWallpaper& item)
{
    const auto [first, last] = m_byFileName.equal_range(item.m_fileName);
    m_byFileName.erase(
        std::find_if(first, last, [&](const auto& entry) { return entry.second == &item; }));
    if (m_largestNumber == item.m_thumbnailNumber)
        m_largestNumber.reset();
    item.Owner = nullptr;
}

void TMuWallpaperList::SetThumbnailNumber(TMuWallpaper& item, std::int32_t number)
{
    assert(item.Owner == this);
    if (m_largestNumber == item.m_thumbnailNumber)
        m_largestNumber.reset();
    item.m_thumbnailNumber = number;
    if (m_largestNumber)
        m_largestNumber = std::max(*m_largestNumber, number);
}

int TMuWallpaperList::IndexOf(const TMuWallpaper* item) const
{
    const auto found = std::ranges::find(m_items, item, &std::unique_ptr<TMuWallpaper>::get);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

int TMuWallpaperList::IndexOfFileName(const std::string& fileName) const
{
    const auto [first, last] = m_byFileName.equal_range(fileName);
    if (first == last)
        return -1;
    if (std::next(first) == last)
        return IndexOf(first->second);
    const auto found = std::ranges::find(
        m_items, fileName, [](const auto& item) -> const auto& { return item->m_fileName; });
    return static_cast<int>(found - m_items.begin());
}

bool TMuWallpaperList::ContainsFileName(const std::string& fileName) const
{
    return m_byFileName.contains(fileName);
}

void TMuWallpaperList::Clear()
{
    m_byFileName.clear();
    m_items.clear();
    LoadedThumbnails.clear();
    m_largestNumber.reset();
}

std::int32_t TMuWallpaperList::NextThumbnailNumber() const
{
    if (!m_largestNumber) {
        m_largestNumber = 0;
        for (const auto& item : m_items)
            m_largestNumber = std::max(*m_largestNumber, item->m_thumbnailNumber);
    }
    if (*m_largestNumber < std::numeric_limits<std::int32_t>::max())
        return *m_largestNumber + 1;
    // Only a file edited by hand leads here: the smallest number that is free.
    std::unordered_set<std::int32_t> used;
    for (const auto& item : m_items)
        used.insert(item->m_thumbnailNumber);
    std::int32_t number = 1;
    while (used.contains(number))
        ++number;
    return number;
}

void TMuWallpaperList::AssignThumbnailNumber(TMuWallpaper& item)
{
    SetThumbnailNumber(item, NextThumbnailNumber());
}

void TMuWallpaperList::SetThumbnailFolder(std::string_view path)
{
    ThumbnailFolder = WithTrailingDivider(path);
    std::error_code error;
    const auto folder = NativePath(ThumbnailFolder);
    if (!std::filesystem::is_directory(folder, error) &&
        !std::filesystem::create_directory(folder, error))
        throw EFileError("Cannot make the folder " + ThumbnailFolder + ": " + error.message());
}

void TMuWallpaperList::ForgetThumbnail(const std::string& fileName)
{
    const auto place = std::ranges::find(LoadedThumbnails, fileName);
    if (place != LoadedThumbnails.end())
        LoadedThumbnails.erase(place);
}

void TMuWallpaperList::FreeThumbnail(TMuWallpaper& item)
{
    if (item.Thumbnail)
        ForgetThumbnail(item.FileName());
    item.FreeThumbnail();
}

void TMuWallpaperList::TrimThumbnails(int count, const std::unordered_set<std::string>& kept)
{
    if (Busy)
        return;
    Busy = true;
    std::erase_if(LoadedThumbnails, [&](const std::string& fileName) {
        if (count <= 0 || kept.contains(fileName))
            return false;
        --count;
        const auto [from, to] = m_byFileName.equal_range(fileName);
        const auto held = std::find_if(
            from, to, [](const auto& entry) { return entry.second->Thumbnail != nullptr; });
        if (held != to)
            held->second->FreeThumbnail();
        return true;
    });
    Busy = false;
}

void TMuWallpaperList::FreeAllThumbnails()
{
    for (const auto& item : m_items)
        item->FreeThumbnail();
    LoadedThumbnails.clear();
}

void TMuWallpaperList::Sort(TListColumn column, bool ascending, const TSortKey& keyOf)
{
    std::vector<TSortKeys> keys;
    keys.reserve(m_items.size());
    // A thousand wallpapers share their folder or category.
    std::unordered_map<std::string, std::string> firstKeys;
    for (const auto& item : m_items) {
        const auto [first, isNew] = firstKeys.try_emplace(ColumnText(column, *item));
        if (isNew)
            first->second = keyOf(first->first);
        keys.push_back({&first->second, column == lcCategory ? keyOf(item->Title) : std::string()});
    }
    std::vector<std::size_t> order(m_items.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
        return ascending ? keys[a] < keys[b] : keys[b] < keys[a];
    });
    std::vector<std::unique_ptr<TMuWallpaper>> sorted;
    sorted.reserve(m_items.size());
    for (std::size_t index : order)
        sorted.push_back(std::move(m_items[index]));
    m_items = std::move(sorted);
}

void TMuWallpaperList::SaveToFile(const std::string& path) const
{
    std::string content(m_byteOrderMark ? ByteOrderMark : std::string_view());
    for (const auto& item : m_items) {
        item->AppendLineTo(content);
        content += LineEnd;
    }
    ReplaceWholeFile(path, content, TFlush::ToDisk);
}

void TMuWallpaperList::LoadFromFile(const std::string& path)
{
    Clear();
    m_byteOrderMark = false;
    if (!FileExists(path))
        return;
    const std::string content = DecodeText(ReadWholeFile(path));
    std::string_view rest = content;
    m_byteOrderMark = rest.starts_with(ByteOrderMark);
    if (m_byteOrderMark)
        rest.remove_prefix(ByteOrderMark.size());
    while (!rest.empty()) {
        const std::string_view before(content.data(), content.size() - rest.size());
        try {
            auto item = std::make_unique<TMuWallpaper>();
            item->LoadFromLine(TakeListLine(rest));
            Add(std::move(item));
        } catch (const EConvertError& error) {
            const int line = static_cast<int>(SplitLines(before).size()) + 1;
            throw EListLineError(
                line, FormatText("Line %d of %s: %s", {std::to_string(line), path, error.what()}));
        }
    }
}

} // namespace murala
