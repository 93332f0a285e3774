#include "uPreviewLoader.h"

#include "uAddOnDesk.h"
#include "uCompose.h"
#include "uPath.h"
#include "uText.h"

#include <new>
#include <utility>

namespace murala
{

namespace
{

// Milliseconds.
constexpr int SettleTime = 500; // until a selection or a changed setting is shown
constexpr int StepPause = 1;    // between two steps of loading

std::string TextOf(const TMuWallpaper& item, TSize size)
{
    const std::string fileName = FileNamePart(item.FileName());
    if (size.Width == 0)
        return FormatText("%s - %s", {item.Title, fileName});
    return FormatText("%s - %s - (%dx%d)", {item.Title, fileName, std::to_string(size.Width),
                                            std::to_string(size.Height)});
}

} // namespace

void TPreviewLoader::WaitFor(TStep step, int milliseconds)
{
    m_next = step;
    m_core.View.WakePreview(milliseconds);
}

void TPreviewLoader::SelectionChanged()
{
    PreviewChanged(true);
    ShowStatus();
}

void TPreviewLoader::PreviewChanged(bool loadPicture)
{
    if (!m_core.View.IsWindowVisible())
        return;
    if (loadPicture) {
        m_core.View.ShowPreviewText(m_core.Selection.Item() != nullptr ? "Loading..." : "");
        WaitFor(TStep::Settling, SettleTime);
    } else if (m_next == TStep::Idle || m_next == TStep::Updating) {
        WaitFor(TStep::Updating, SettleTime);
    }
}

void TPreviewLoader::LookAgain()
{
    if (IsOutOfDate())
        PreviewChanged(true);
}

void TPreviewLoader::Clear()
{
    m_next = TStep::Idle;
    m_core.View.ShowPreviewText("");
    Release();
}

void TPreviewLoader::Tick()
{
    const TStep step = std::exchange(m_next, TStep::Idle);
    if (step == TStep::Idle)
        return;
    if (!m_core.View.IsWindowVisible())
        return Release();
    if (step == TStep::Updating)
        IsOutOfDate() ? PreviewChanged(true) : ShowPicture();
    else if (m_core.Selection.Item() != nullptr)
        Load();
    else
        Clear();
}

void TPreviewLoader::Load()
{
    const std::optional<std::string> problem = LoadSome();
    if (!problem)
        return WaitFor(TStep::Loading, StepPause);
    if (problem->empty())
        ShowPicture();
    else
        m_core.View.ShowPreviewText(*problem);
    ShowStatus();
}

// Nothing while more steps are needed; at the end an empty text when that worked, else what is
// shown instead of the picture.
std::optional<std::string> TPreviewLoader::LoadSome()
{
    const std::string& fileName = m_core.Selection.Item()->FileName();
    try {
        if (!m_source.LoadSome(fileName))
            return std::nullopt;
        m_secondTry.clear();
        return "";
    } catch (const std::bad_alloc&) {
        if (std::exchange(m_secondTry, fileName) == fileName) {
            m_secondTry.clear();
            return "Image is too big to preview.";
        }
        m_core.Status.Note("Freeing thumbnails to make room for large image.");
        m_core.List.FreeAllThumbnails();
        return std::nullopt;
    } catch (const EInvalidImage& error) {
        return error.what();
    } catch (const std::runtime_error& error) {
        return FormatText("The image (%s) could not be previewed.\r\n%s", {fileName, error.what()});
    }
}

bool TPreviewLoader::IsOutOfDate() const
{
    const TMuWallpaper* item = m_core.Selection.Item();
    return item != nullptr && m_source.IsOutOfDate(item->FileName());
}

TBitmap TPreviewLoader::Picture(int width)
{
    const TMuWallpaper* item = m_core.Selection.Item();
    if (item == nullptr || width < 1 || !m_source.Holds(item->FileName()))
        return {};
    const TSize screen = m_core.Services.Desktop.ScreenSize();
    std::string problem;
    TBitmap picture = ComposePicture(*m_source.Open(item->FileName()), *item, screen,
                                     AddOnsForPreview(m_core, problem));
    m_core.Status.SetPreviewProblem(problem);
    ResizeBitmap(picture, width,
                 RoundHalfEven(static_cast<long double>(width) * screen.Height / screen.Width));
    return picture;
}

void TPreviewLoader::ShowPicture()
{
    const TBitmap picture = Picture(m_core.View.PreviewWidth(m_core.Services.Desktop.ScreenSize()));
    if (picture.Width() > 0)
        m_core.View.ShowPreview(picture);
}

std::unique_ptr<TImageReader> TPreviewLoader::Open(const TMuWallpaper& item)
{
    if (m_core.View.IsWindowVisible() && m_core.Selection.Item() == &item) {
        try {
            m_source.Load(item.FileName());
        } catch (const std::bad_alloc&) {
            Release(); // row by row it takes less
        }
    }
    return m_source.Open(item.FileName());
}

void TPreviewLoader::ShowStatus()
{
    const TMuWallpaper* item = m_core.Selection.Item();
    m_core.Status.SetItem(item != nullptr ? TextOf(*item, SizeOf(*item)) : "");
}

} // namespace murala
