// The part of TMurala that reaches out of the program: the desktop, the schedule, other programs.

#include "uMurala.h"

#include "uIconView.h"
#include "uPath.h"
#include "uSafeFile.h"
#include "uShellIntegration.h"
#include "uText.h"

#include <new>

namespace murala
{

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

bool TMurala::ComposeWallpaper(bool startEffect, TReport report)
{
    // Starting an effect lets messages through; one of them could ask for the next wallpaper.
    if (m_isComposing || m_current < 0 || m_current >= List.Count())
        return false;
    m_isComposing = true;
    bool done = false;
    {
        const TBusyScope busy(m_view);
        try {
            ComposeItem(List.Item(m_current));
            done = true;
            ApplyEffect(List.Item(m_current), startEffect, report);
        } catch (const std::bad_alloc&) {
            ReportProblem(report, "There is not enough memory for this wallpaper.");
        } catch (const std::runtime_error& error) {
            ReportProblem(report, error.what());
        }
    }
    if (!m_view.IsWindowVisible())
        ReleasePreview();
    m_services.Siblings.NotifyVeyraWallpaperChange();
    m_isComposing = false;
    return done;
}

void TMurala::ComposeItem(TMuWallpaper& item)
{
    TDesktop& desktop = m_services.Desktop;
    const auto source = m_source.Open(item.FileName());
    if (item.DisplayMode <= dmFitVertically)
        desktop.WriteTileWallpaper(1);
    const TBitmap picture = ComposePicture(*source, item, ScreenSize(), {});
    const std::string name = WallpaperBitmapName(m_services.Siblings.GetVeyraDesktop());
    const std::string path = SaveWallpaper(picture, FilePath(name), desktop.ScreenBitsPerPixel());
    desktop.Install(path, item.DesktopColor, [this](bool took) {
        if (!took)
            m_view.SetStatus("The desktop did not take the wallpaper.");
    });
    ApplyLabels(item);
    Settings.LastChangeDate = Settings.CalendarDate = m_services.Clock.Now();
    SaveSettings(TSaveFlags().set(sfWallpaperCurrent).set(sfCalendarDate));
    m_view.WallpaperChanged();
}

void TMurala::ApplyItemColor(TColor color)
{
    m_services.Desktop.ApplyDesktopColor(color);
}

void TMurala::ApplyLabels(const TMuWallpaper& item)
{
    if (item.TransparentIcons)
        SetIconsTransparent(m_services.IconView);
    else
        SetIconsOpaque(m_services.IconView, m_services.Desktop);
}

bool TMurala::ApplyRow(int row, TReport report)
{
    m_current = row;
    ReleasePreview();
    m_view.SelectRow(row);
    return ComposeWallpaper(true, report);
}

bool TMurala::Next(TReport report)
{
    if (List.Count() < 2 || m_isComposing)
        return false;
    const int selected = m_view.SelectedRow();
    return ApplyRow(((selected >= 0 ? selected : m_current) + 1) % List.Count(), report);
}

void TMurala::Previous()
{
    if (List.Count() == 0 || m_isComposing)
        return;
    const int selected = m_view.SelectedRow();
    const int row = (selected >= 0 ? selected : m_current) - 1;
    ApplyRow(row < 0 ? List.Count() - 1 : row, TReport::MessageBox);
}

void TMurala::ApplyEffect(const TMuWallpaper& item, bool startEffect, TReport report)
{
    if (IsNoEffect(item.Effect)) {
        if (IsCurrentSelected())
            m_effects.CloseRovane();
        return;
    }
    if (!startEffect)
        return;
    m_view.EnableWindow(false);
    const TEffectStart start = m_effects.RunEffect(item.Effect, item.FileName());
    m_view.EnableWindow(true);
    ReportEffect(start, item.Effect, report);
}

void TMurala::ReportEffect(TEffectStart start, const std::string& effect, TReport report)
{
    if (start == TEffectStart::NotLaunched)
        ReportProblem(report, FormatText(EffectNotLaunchedText, {effect}));
    else if (start == TEffectStart::RovaneRunning)
        ReportProblem(report, std::string(RovaneRunningText));
}

void TMurala::RunEffectSettings()
{
    const TMuWallpaper* item = SelectedItem();
    if (item == nullptr || IsNoEffect(item->Effect))
        return;
    if (!IsCurrentSelected()) {
        m_current = m_view.SelectedRow();
        ComposeWallpaper(false);
    }
    m_view.MinimiseWindow();
    m_view.EnableWindow(false);
    const TEffectStart start = m_effects.RunEffectSettings(item->Effect, item->FileName());
    m_view.EnableWindow(true);
    ReportEffect(start, item->Effect, TReport::MessageBox);
}

void TMurala::RefreshTick()
{
    if (m_services.ScreenSaver.IsRunning())
        return;
    if (Settings.RefreshIcons && m_current >= 0 && m_current < List.Count() &&
        List.Item(m_current).TransparentIcons)
        SetIconsTransparent(m_services.IconView);
}

void TMurala::SetSchedule(const TScheduleSettings& schedule)
{
    SetScheduleOf(Settings, schedule);
    Settings.LastChangeDate = m_services.Clock.Now();
    SaveSettings(AllSaveFlags);
}

void TMurala::ScheduleTick()
{
    if (Updating || !Settings.UseSchedule || m_services.ScreenSaver.IsRunning())
        return;
    const TDateTime now = m_services.Clock.Now();
    Settings.LastChangeDate = LastChangeBefore(Settings.LastChangeDate, now);
    if (List.Count() < 2 || !IsChangeDue(ScheduleOf(Settings), Settings.LastChangeDate, now))
        return;
    if (Next(TReport::StatusLine)) {
        m_failedChanges = 0;
    } else if (++m_failedChanges >= List.Count()) {
        // Not one of the pictures can be shown: try again when the next change is due.
        m_failedChanges = 0;
        Settings.LastChangeDate = now;
    }
}

std::string TMurala::StartupCommand() const
{
    return Settings.ApplyOnStartup ? m_services.ProgramFile + " /apply" : m_services.ProgramFile;
}

void TMurala::LoadStartup()
{
    // Rewriting the command of an existing entry keeps it right when the program was moved.
    if (m_services.Autostart.RunValueExists(std::string(ApplicationTitle)))
        SetStartAtStartup(true);
    m_isShellIntegrated = murala::IsShellIntegrated(m_services.FileMenu);
}

void TMurala::SetStartAtStartup(bool start)
{
    TAutostart& autostart = m_services.Autostart;
    const std::string name(ApplicationTitle);
    if (start)
        autostart.SetRunValue(name, StartupCommand());
    else
        autostart.DeleteRunValue(name);
    m_startAtStartup = autostart.RunValueExists(name);
}

void TMurala::SetApplyOnStartup(bool apply)
{
    Settings.ApplyOnStartup = apply;
    if (m_startAtStartup)
        m_services.Autostart.SetRunValue(std::string(ApplicationTitle), StartupCommand());
    SaveSettings(TSaveFlags().set(sfApplyOnStartup));
}

void TMurala::SetNextOnStartup(bool next)
{
    Settings.NextOnStartup = next;
    SaveSettings(TSaveFlags().set(sfNextOnStartup));
}

void TMurala::SetShellIntegration(bool integrated)
{
    murala::SetShellIntegration(m_services.FileMenu, integrated);
    m_isShellIntegrated = murala::IsShellIntegrated(m_services.FileMenu);
}

void TMurala::ImportQueuedFiles()
{
    m_view.EnableWindow(false);
    // A copy that starts meanwhile may queue more.
    TFileQueue& queue = m_services.FileQueue;
    for (auto files = queue.TakeQueuedFiles(); !files.empty(); files = queue.TakeQueuedFiles())
        AddFiles(files);
    m_view.EnableWindow(true);
}

void TMurala::OpenSelected(TShellVerb verb)
{
    if (const TMuWallpaper* item = SelectedItem())
        m_services.Launcher.Execute(verb, item->FileName(), "");
}

} // namespace murala
