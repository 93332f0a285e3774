#include "uThumbnailCache.h"

#include "uJpegFile.h"
#include "uPath.h"
#include "uText.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <utility>

namespace murala
{

namespace
{

constexpr int Quality = 50;
constexpr std::int32_t FewestThumbnails = 10; // in memory, whatever fails
constexpr int TrimmedAtOnce = 10;
constexpr std::ptrdiff_t UntouchedPositions = 10; // a hit up to this position moves nothing

constexpr std::string_view OutOfResources = "Out of system resources.";
constexpr std::string_view KeptElsewhere =
    "It lies in a cloud only. \"Refresh Thumbnail\" fetches it.";

// The time of the last change in whole seconds, so that a picture that changes in the second in
// which its thumbnail was made counts as changed. Nothing when there is no such file.
std::optional<std::chrono::seconds> FileAge(const std::string& fileName)
{
    std::error_code error;
    const auto time = std::filesystem::last_write_time(NativePath(fileName), error);
    if (error)
        return std::nullopt;
    return std::chrono::floor<std::chrono::seconds>(time.time_since_epoch());
}

std::string ReasonText(std::string reason)
{
    return reason == "The parameter is incorrect.\r\n" ? std::string(OutOfResources) : reason;
}

} // namespace

EThumbnail::EThumbnail(const std::string& fileName, const std::string& reason)
    : std::runtime_error(
          FormatText("A thumbnail could not be generated for image (%s).", {fileName}) + "\r\n" +
          reason)
{
}

std::string TThumbnailStatistics::SizeText() const
{
    return PrintShort("%6.2f KB", static_cast<double>(Bytes) / 1024);
}

std::string TThumbnailStatistics::ShareText() const
{
    const auto disk = static_cast<double>(DiskBytes);
    return PrintShort("%6.2f%%", DiskBytes > 0 ? static_cast<double>(Bytes) / disk * 100 : 0.0);
}

std::string TThumbnailStatistics::CountText() const
{
    return std::to_string(Count);
}

const TBitmap* TThumbnailCache::Held(const TMuWallpaper& item)
{
    return static_cast<const TBitmap*>(item.Thumbnail.get());
}

void TThumbnailCache::Touch(const TMuWallpaper& item)
{
    auto& loaded = m_list.LoadedThumbnails;
    const auto place = std::ranges::find(loaded, item.FileName());
    if (place != loaded.end() && place - loaded.begin() > UntouchedPositions)
        std::rotate(loaded.begin(), place, place + 1);
}

const TBitmap& TThumbnailCache::GetThumbnail(TMuWallpaper& item)
{
    if (item.Thumbnail)
        Touch(item);
    while (!item.Thumbnail)
        if (TThumbnailStep step = Advance(item); step.Progress == TThumbnailProgress::Failed)
            throw EThumbnail(item.FileName(), step.Error);
    return static_cast<const TBitmap&>(*item.Thumbnail);
}

TThumbnailStep TThumbnailCache::MakeNext(std::span<TMuWallpaper* const> shown)
{
    Show(shown);
    TMuWallpaper* item = NextWanted(shown);
    if (item == nullptr) {
        m_making.reset();
        return {};
    }
    return Make(*item);
}

TThumbnailStep TThumbnailCache::Make(TMuWallpaper& item)
{
    if (!IsBeingMade(item))
        MakeRoom();
    TThumbnailStep step = Advance(item);
    if (step.Progress == TThumbnailProgress::Failed)
        step.Error = EThumbnail(item.FileName(), step.Error).what();
    return step;
}

void TThumbnailCache::Show(std::span<TMuWallpaper* const> shown)
{
    std::vector<std::uint64_t> ids;
    ids.reserve(shown.size());
    for (const TMuWallpaper* item : shown)
        ids.push_back(item->Id());
    if (ids == m_shown)
        return;
    m_shownFiles.clear();
    for (const TMuWallpaper* item : shown) {
        m_shownFiles.insert(item->FileName());
        if (std::ranges::find(m_shown, item->Id()) == m_shown.end())
            Arrive(*item);
    }
    m_shown = std::move(ids);
    if (!IsShown(m_secondTry))
        EndSecondTry(m_limitBefore);
}

void TThumbnailCache::Arrive(const TMuWallpaper& item)
{
    const auto failure = m_failed.find(item.FileName());
    if (item.Thumbnail)
        Touch(item);
    else if (failure != m_failed.end() && TClock::now() - failure->second >= RetryPause)
        m_failed.erase(failure);
}

bool TThumbnailCache::IsBeingMade(const TMuWallpaper& item) const
{
    return m_making && m_making->Item == &item && m_making->FileName == item.FileName();
}

bool TThumbnailCache::IsWanted(const TMuWallpaper& item) const
{
    return !item.Thumbnail && !m_failed.contains(item.FileName());
}

// An item that was begun is finished first; a second try follows the first one at once.
TMuWallpaper* TThumbnailCache::NextWanted(std::span<TMuWallpaper* const> shown) const
{
    const auto begun = std::ranges::find_if(shown, [this](const TMuWallpaper* item) {
        return IsWanted(*item) && (IsBeingMade(*item) || item->FileName() == m_secondTry);
    });
    if (begun != shown.end())
        return *begun;
    const auto wanted =
        std::ranges::find_if(shown, [this](const auto* item) { return IsWanted(*item); });
    return wanted == shown.end() ? nullptr : *wanted;
}

TThumbnailStep TThumbnailCache::Advance(TMuWallpaper& item)
try {
    const bool isKeepable = !m_list.ThumbnailFolder.empty();
    const std::string file = isKeepable ? item.ThumbnailFileName() : std::string();
    if (!IsBeingMade(item)) {
        m_making.reset();
        if (LoadKept(item, file))
            return {TThumbnailProgress::Made, &item, {}};
        if (!m_refreshed.contains(item.FileName()) && IsElsewhere(item.FileName())) {
            m_failed.insert_or_assign(item.FileName(), TClock::now());
            return {TThumbnailProgress::Failed, &item, std::string(KeptElsewhere)};
        }
        m_making = TMaking{&item, item.FileName(), TThumbnailMaker(item.FileName())};
    } else if (m_making->Maker.Step()) {
        TBitmap thumbnail = m_making->Maker.Take();
        m_making.reset();
        Keep(thumbnail, file);
        return Hold(item, std::move(thumbnail));
    }
    return {TThumbnailProgress::Working, &item, {}};
} catch (const std::bad_alloc&) {
    return Recover(item, std::string(OutOfResources));
} catch (const std::exception& error) {
    return Recover(item, ReasonText(error.what()));
}

void TThumbnailCache::MakeRoom()
{
    if (std::cmp_greater(m_list.LoadedThumbnails.size(), m_list.MaxThumbnails))
        m_list.TrimThumbnails(TrimmedAtOnce, m_shownFiles);
}

bool TThumbnailCache::LoadKept(TMuWallpaper& item, const std::string& file)
{
    if (file.empty() || m_undeletable.contains(file) || FileAge(file) <= FileAge(item.FileName()))
        return false;
    MakeRoom();
    try {
        TBitmap thumbnail = LoadImageFile(file, {.Strict = true});
        if (thumbnail.Size() != StoredThumbnailSize)
            return false;
        Hold(item, std::move(thumbnail));
        return true;
    } catch (const EInvalidImage&) {
        return false; // it is made again
    }
}

void TThumbnailCache::Keep(const TBitmap& thumbnail, const std::string& file)
try {
    if (file.empty())
        return;
    Save(thumbnail, file);
    m_undeletable.erase(file);
} catch (const EFileError& error) {
    if (!m_isNoticeTaken && m_notice.empty())
        m_notice = std::string("Thumbnails are shown, but they cannot be kept.\r\n") + error.what();
}

// The folder may have been deleted since the start.
void TThumbnailCache::Save(const TBitmap& thumbnail, const std::string& file)
try {
    SaveJpegFile(thumbnail, file, Quality);
} catch (const EFileError&) {
    std::error_code error;
    if (std::filesystem::exists(NativePath(m_list.ThumbnailFolder), error))
        throw;
    m_list.SetThumbnailFolder(m_list.ThumbnailFolder);
    SaveJpegFile(thumbnail, file, Quality);
}

TThumbnailStep TThumbnailCache::Hold(TMuWallpaper& item, TBitmap thumbnail)
{
    item.Thumbnail = std::make_unique<TBitmap>(std::move(thumbnail));
    m_list.LoadedThumbnails.push_back(item.FileName());
    m_failed.erase(item.FileName());
    if (m_secondTry == item.FileName())
        EndSecondTry(m_list.MaxThumbnails); // it lacked memory: the lower limit stays
    return {TThumbnailProgress::Made, &item, {}};
}

TThumbnailStep TThumbnailCache::Recover(TMuWallpaper& item, const std::string& reason)
{
    const auto& loaded = m_list.LoadedThumbnails;
    m_making.reset();
    m_limitBefore = m_limitBefore.value_or(m_list.MaxThumbnails);
    m_list.MaxThumbnails = std::max(FewestThumbnails, static_cast<std::int32_t>(loaded.size()) - 1);
    m_list.FreeThumbnail(item);
    const bool isAllShown =
        std::ranges::all_of(loaded, [this](const std::string& file) { return IsShown(file); });
    if (isAllShown || m_secondTry == item.FileName()) {
        EndSecondTry(m_limitBefore); // it did not lack memory: the limit is as before
        m_failed.insert_or_assign(item.FileName(), TClock::now());
        return {TThumbnailProgress::Failed, &item, reason};
    }
    // Thumbnails on the screen stay: they would be loaded again at once.
    m_list.TrimThumbnails(static_cast<int>(loaded.size()), m_shownFiles);
    m_secondTry = item.FileName();
    return {TThumbnailProgress::Working, &item, {}};
}

// The limit was lowered for the second try.
void TThumbnailCache::EndSecondTry(std::optional<std::int32_t> limit)
{
    m_list.MaxThumbnails = limit.value_or(m_list.MaxThumbnails);
    m_limitBefore.reset();
    m_secondTry.clear();
}

bool TThumbnailCache::Refresh(TMuWallpaper& item)
{
    m_list.FreeThumbnail(item);
    item.DeleteThumbnailFile();
    m_failed.erase(item.FileName());
    m_refreshed.insert(item.FileName());
    m_making.reset();
    std::error_code error;
    const std::string file = item.ThumbnailNumber() != 0 ? item.ThumbnailFileName() : "";
    if (file.empty() || !std::filesystem::exists(NativePath(file), error))
        return true;
    m_undeletable.insert(file);
    return false;
}

TThumbnailStatistics TThumbnailCache::Statistics()
{
    TThumbnailStatistics statistics;
    std::error_code error;
    for (int i = 0; i < m_list.Count(); ++i) {
        const auto file = NativePath(m_list.Item(i).ThumbnailFileName());
        const auto size = std::filesystem::file_size(file, error);
        if (error)
            continue;
        statistics.Bytes += static_cast<std::int64_t>(size);
        ++statistics.Count;
    }
    const auto space = std::filesystem::space(NativePath(m_list.ThumbnailFolder), error);
    if (!error)
        statistics.DiskBytes = static_cast<std::int64_t>(space.capacity);
    return statistics;
}

std::string TThumbnailCache::TakeNotice()
{
    m_isNoticeTaken = m_isNoticeTaken || !m_notice.empty();
    return std::exchange(m_notice, {});
}

TThumbnailRefresh::TThumbnailRefresh(TThumbnailCache& cache, TMuWallpaperList& list)
    : m_cache(cache), m_list(list)
{
    m_list.FreeAllThumbnails();
}

bool TThumbnailRefresh::Step()
{
    if (m_position >= m_list.Count())
        return false;
    TMuWallpaper* item = &m_list.Item(m_position);
    if (!m_isBegun)
        m_cache.Refresh(*item);
    const TThumbnailStep step = m_cache.Make(*item);
    if (step.Progress == TThumbnailProgress::Failed)
        m_errors.push_back(step.Error);
    m_isBegun = step.Progress == TThumbnailProgress::Working;
    if (!m_isBegun)
        ++m_position;
    return m_position < m_list.Count();
}

} // namespace murala
