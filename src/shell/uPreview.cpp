#include "uPreview.h"

#include "uAddOnDesk.h"
#include "uCompose.h"
#include "uPath.h"
#include "uText.h"

#include <new>
#include <utility>

namespace murala
{

std::optional<std::string> TPreview::LoadSome()
{
    const TMuWallpaper* item = m_core.Selection.Item();
    if (item == nullptr || !m_core.View.IsWindowVisible())
        return "";
    try {
        if (!m_source.LoadSome(item->FileName()))
            return std::nullopt;
        m_secondTry.clear();
        return "";
    } catch (const std::bad_alloc&) {
        if (m_secondTry == item->FileName()) {
            m_secondTry.clear();
            return "Image is too big to preview.";
        }
        m_secondTry = item->FileName();
        m_core.View.SetStatus("Freeing thumbnails to make room for large image.");
        m_core.List.FreeAllThumbnails();
        return std::nullopt;
    } catch (const EInvalidImage& error) {
        return error.what();
    } catch (const std::runtime_error& error) {
        return FormatText("The image (%s) could not be previewed.\r\n%s",
                          {item->FileName(), error.what()});
    }
}

TBitmap TPreview::Picture(int width)
{
    const TMuWallpaper* item = m_core.Selection.Item();
    if (item == nullptr || width < 1 || !m_source.Holds(item->FileName()))
        return {};
    const TSize screen = m_core.Services.Desktop.ScreenSize();
    std::string problem;
    TBitmap picture = ComposePicture(*m_source.Open(item->FileName()), *item, screen,
                                     AddOnsForPreview(m_core, problem));
    TellProblem(problem);
    ResizeBitmap(picture, width,
                 RoundHalfEven(static_cast<long double>(width) * screen.Height / screen.Width));
    return picture;
}

// Until it works again.
void TPreview::TellProblem(const std::string& problem)
{
    const std::string before = std::exchange(m_problem, problem);
    if (!problem.empty())
        m_core.Report(TReport::StatusLine, problem);
    else if (!before.empty() && m_core.Problem == before)
        m_core.Problem.clear();
}

bool TPreview::IsOutOfDate() const
{
    const TMuWallpaper* item = m_core.Selection.Item();
    return item != nullptr && m_source.IsOutOfDate(item->FileName());
}

std::unique_ptr<TImageReader> TPreview::Open(const TMuWallpaper& item)
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

std::string TPreview::StatusText() const
{
    const TMuWallpaper* item = m_core.Selection.Item();
    if (item == nullptr)
        return {};
    const std::string fileName = FileNamePart(item->FileName());
    const TSize size = SizeOf(*item);
    if (size.Width == 0)
        return FormatText("%s - %s", {item->Title, fileName});
    return FormatText("%s - %s - (%dx%d)", {item->Title, fileName, std::to_string(size.Width),
                                            std::to_string(size.Height)});
}

} // namespace murala
