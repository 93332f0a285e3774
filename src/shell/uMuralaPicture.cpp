// The part of TMurala that works on pictures: the selected item's settings, the preview, the desktop.

#include "uMurala.h"

#include "uPath.h"
#include "uSafeFile.h"
#include "uText.h"

#include <new>

namespace murala
{

// --- the selected item --------------------------------------------------------------------------

void TMurala::ItemEdited()
{
    m_view.ItemChanged();
    m_view.PreviewChanged(false);
    SaveList();
}

void TMurala::SetDisplayMode(std::uint8_t mode)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    item->DisplayMode = mode;
    const TSize image = m_source.SizeOf(item->FileName);
    if (image.Width > 0)
        for (const std::string_view text :
             CheckDisplayMode(item->DisplayMode, image, ScreenSize()))
            m_view.ShowMessage(std::string(text));
    ItemEdited();
}

void TMurala::StepDisplayMode()
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    const TSize image = m_source.SizeOf(item->FileName);
    item->DisplayMode = image.Width > 0
                            ? NextDisplayMode(item->DisplayMode, image, ScreenSize())
                            : static_cast<std::uint8_t>((item->DisplayMode + 1) %
                                                        std::size(DisplayModeNames));
    ItemEdited();
}

void TMurala::SetGammaStyle(std::uint8_t style)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr || item->GammaStyle == style)
        return;
    item->GammaStyle = style;
    if (style == gsNone) {
        for (std::int32_t* value :
             {&item->GammaStartRed, &item->GammaStartGreen, &item->GammaStartBlue,
              &item->GammaEndRed, &item->GammaEndGreen, &item->GammaEndBlue})
            *value = 0;
    }
    ItemEdited();
}

void TMurala::SetTint(TTintEnd end, TTintChannel channel, int value)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    const bool isStart = end == TTintEnd::Start;
    const auto set = [&](TTintChannel which, std::int32_t& start, std::int32_t& stop) {
        if (channel == which || channel == TTintChannel::All)
            (isStart ? start : stop) = value;
    };
    set(TTintChannel::Red, item->GammaStartRed, item->GammaEndRed);
    set(TTintChannel::Green, item->GammaStartGreen, item->GammaEndGreen);
    set(TTintChannel::Blue, item->GammaStartBlue, item->GammaEndBlue);
    m_view.PreviewChanged(false);
}

void TMurala::SetDesktopColor(TColor color)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    item->SetDesktopColor(color);
    if (IsCurrentSelected() && !Updating)
        ApplyItemColor(color);
    ItemEdited();
}

// --- the desktop --------------------------------------------------------------------------------

void TMurala::ApplyItemColor(TColor color)
{
    // Setting the colour makes the system tell every window, this program's too.
    m_isSettingDesktopColor = true;
    ApplyDesktopColor(m_services.Desktop, color);
    m_isSettingDesktopColor = false;
}

void TMurala::ReportProblem(TReport report, const std::string& text)
{
    if (report == TReport::MessageBox)
        m_view.ShowMessage(text);
    else
        m_view.SetStatus(text);
}

void TMurala::ApplySelected()
{
    if (const int row = m_view.SelectedRow(); row >= 0) {
        m_current = row;
        ComposeWallpaper(true);
    }
}

bool TMurala::ComposeWallpaper([[maybe_unused]] bool startEffect, TReport report)
{
    if (m_current < 0 || m_current >= List.Count())
        return false;
    const TBusyScope busy(m_view);
    bool done = false;
    try {
        TMuWallpaper& item = List.Item(m_current);
        ComposeItem(item);
        done = true;
    } catch (const std::bad_alloc&) {
        ReportProblem(report, "There is not enough memory for this wallpaper.");
    } catch (const std::runtime_error& error) {
        ReportProblem(report, error.what());
    }
    if (!m_view.IsWindowVisible())
        ReleasePreview();
    return done;
}

void TMurala::ComposeItem(TMuWallpaper& item)
{
    TDesktop& desktop = m_services.Desktop;
    const auto source = m_source.Open(item.FileName);
    if (item.DisplayMode <= dmFitVertically)
        WriteTileWallpaper(desktop, 1);
    const TBitmap picture = ComposePicture(*source, item, ScreenSize(), {});
    const std::string path = SaveWallpaper(picture, FilePath(WallpaperBitmapName(0)));
    const bool isInstalled = desktop.SetWallpaperFile(path);
    ApplyItemColor(item.DesktopColor);
    Settings.LastChangeDate = Settings.CalendarDate = m_services.Clock.Now();
    SaveSettings(TSaveFlags().set(sfWallpaperCurrent).set(sfCalendarDate));
    m_view.WallpaperChanged();
    if (!isInstalled)
        m_view.SetStatus("The desktop did not take the wallpaper.");
}

void TMurala::ApplyRow(int row, TReport report)
{
    m_current = row;
    ReleasePreview();
    m_view.SelectRow(row);
    ComposeWallpaper(true, report);
}

void TMurala::Next(TReport report)
{
    if (List.Count() < 2)
        return;
    const int selected = m_view.SelectedRow();
    ApplyRow(((selected >= 0 ? selected : m_current) + 1) % List.Count(), report);
}

void TMurala::Previous()
{
    if (List.Count() == 0)
        return;
    const int selected = m_view.SelectedRow();
    const int row = (selected >= 0 ? selected : m_current) - 1;
    ApplyRow(row < 0 ? List.Count() - 1 : row, TReport::MessageBox);
}

// --- the preview --------------------------------------------------------------------------------

std::string TMurala::LoadPreview()
{
    const TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return {};
    for (bool retry = true;; retry = false) {
        try {
            m_source.Load(item->FileName);
            return {};
        } catch (const std::bad_alloc&) {
            if (!retry)
                return "Image is too big to preview.";
            m_view.SetStatus("Freeing thumbnails to make room for large image.");
            List.FreeAllThumbnails();
        } catch (const EInvalidImage& error) {
            return error.what();
        } catch (const std::runtime_error& error) {
            return FormatText("The image (%s) could not be previewed.\r\n%s",
                              {item->FileName, error.what()});
        }
    }
}

TBitmap TMurala::PreviewPicture(int width)
{
    const TMuWallpaper* item = SelectedItem();
    if (item == nullptr || width < 1 || !m_source.Holds(item->FileName))
        return {};
    const TSize screen = ScreenSize();
    TBitmap picture = ComposePicture(*m_source.Open(item->FileName), *item, screen, {});
    ResizeBitmap(picture, width,
                 RoundHalfEven(static_cast<long double>(width) * screen.Height / screen.Width));
    return picture;
}

void TMurala::ReleasePreview() { m_source.Release(); }

} // namespace murala
