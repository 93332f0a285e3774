#include "uApplier.h"

#include "uAddOnDesk.h"
#include "uCompose.h"
#include "uPath.h"
#include "uShippedFile.h"
#include "uText.h"

#include <new>

namespace murala
{

namespace
{

// What to tell the user; empty when the effect was started.
std::string EffectProblem(TEffectStart start, const std::string& effect)
{
    switch (start) {
    case TEffectStart::NotLaunched:
        return FormatText(EffectNotLaunchedText, {effect});
    case TEffectStart::RovaneRunning:
        return std::string(RovaneRunningText);
    default:
        return {};
    }
}

// The folder that holds "Plugins": the user's, or where the program's own files are.
std::string EffectsFolder(const TCore& core)
{
    return FolderPart(FindShippedFile(core.Services, "Plugins").value_or(core.FilePath("Plugins")));
}

} // namespace

TApplier::TApplier(TCore& core, TStorage& storage, TPreviewLoader& preview)
    : m_core(core), m_storage(storage), m_preview(preview),
      m_effects(EffectsFolder(core), core.Services.Launcher, core.Services.Siblings,
                core.Services.MessageLoop),
      m_way(core.Services.Door)
{
}

void TApplier::Apply(TMuWallpaper& item)
{
    Compose(&item, true, TReport::MessageBox);
}

bool TApplier::ComposeWallpaper(bool startEffect, TReport report)
{
    return Compose(m_core.Selection.Current(), startEffect, report);
}

bool TApplier::Compose(TMuWallpaper* item, bool startEffect, TReport report,
                       const std::function<void()>& onInstalled)
{
    if (m_isComposing)
        return false;
    const TWorkScope work(m_core.Pauses);
    bool done = false;
    std::string problem;
    {
        const TValueScope composing(m_isComposing, true);
        const TBusyScope busy(m_core.View);
        try {
            if (item != nullptr) {
                ComposeItem(*item);
                done = true;
                onInstalled();
                problem = StartEffect(*item, startEffect);
            }
        } catch (const std::bad_alloc&) {
            problem = "There is not enough memory for this wallpaper.";
        } catch (const std::runtime_error& error) {
            problem = error.what();
        }
    }
    const TValueScope telling(m_isComposing, true);
    if (!m_core.View.IsWindowVisible())
        m_preview.Release();
    m_core.Services.Siblings.NotifyVeyraWallpaperChange();
    if (!problem.empty())
        m_core.Report(report, problem);
    return done;
}

void TApplier::ComposeItem(TMuWallpaper& item)
{
    TDesktop& desktop = m_core.Services.Desktop;
    m_core.Status.SetProblem("");
    auto source = m_preview.Open(item);
    if (const TDisplayModeRow* mode = FindDisplayMode(item.DisplayMode))
        desktop.WriteTileWallpaper(mode->IsTiledByDesktop ? 0 : 1);
    std::string problem;
    TScreenPictures pictures;
    for (const TScreenGroup& screens : desktop.Screens()) {
        const auto reader = source ? std::move(source) : m_preview.Open(item);
        const TBitmap picture =
            ComposePicture(*reader, item, screens.Size, AddOnsForDesktop(m_core, problem));
        const std::string name =
            WallpaperBitmapName(m_core.Services.Siblings.GetVeyraDesktop(), screens.Name);
        pictures.push_back(
            {screens, SaveWallpaper(picture, m_core.FilePath(name), desktop.ScreenBitsPerPixel())});
    }
    Install(pictures, item.DesktopColor);
    ApplyLabels(item);
    m_core.Settings.Memory.LastChangeDate = m_core.Settings.Memory.CalendarDate =
        m_core.Services.Clock.Now();
    m_core.Selection.SetCurrent(&item, TCurrentChange::Installed);
    m_storage.SaveSettings(TSaveFlags().set(sfWallpaperCurrent).set(sfCalendarDate));
    if (!problem.empty())
        m_core.Report(TReport::StatusLine, problem);
}

void TApplier::Install(const TScreenPictures& pictures, TColor color)
{
    // The desktop may answer when another wallpaper was installed since.
    m_core.Services.Desktop.Install(
        pictures, color, m_way.Through([this, number = ++m_installs](const TInstalled& installed) {
            if (!installed.Took && number == m_installs)
                m_core.Report(TReport::StatusLine,
                              std::string(Trim("The desktop did not take the wallpaper. " +
                                               installed.Advice)));
        }));
}

void TApplier::ApplyLabels(const TMuWallpaper& item)
{
    if (item.TransparentIcons)
        SetIconsTransparent(m_core.Services.IconView);
    else
        SetIconsOpaque(m_core.Services.IconView, m_core.Services.Desktop);
}

void TApplier::RefreshColor(const TMuWallpaper& item)
{
    if (!m_core.Updating && m_core.Selection.IsCurrent(item))
        m_core.Services.Desktop.ApplyDesktopColor(item.DesktopColor);
}

void TApplier::RefreshLabels(const TMuWallpaper& item)
{
    if (!m_core.Updating && m_core.Selection.IsCurrent(item))
        ApplyLabels(item);
}

bool TApplier::ApplyRow(int row, TReport report)
{
    if (m_isComposing)
        return false;
    m_preview.Release();
    TMuWallpaper* item = &m_core.List.Item(row);
    m_core.Selection.Select(item);
    return Compose(item, true, report);
}

bool TApplier::Next(TReport report)
{
    if (m_core.List.Count() < 2 || m_isComposing)
        return false;
    return ApplyRow((m_core.Selection.RowOrCurrent() + 1) % m_core.List.Count(), report);
}

void TApplier::Previous()
{
    if (m_core.List.Count() == 0 || m_isComposing)
        return;
    const int row = m_core.Selection.RowOrCurrent() - 1;
    ApplyRow(row < 0 ? m_core.List.Count() - 1 : row, TReport::MessageBox);
}

bool TApplier::TryRow(int row)
{
    TMuWallpaper* item = &m_core.List.Item(row);
    return Compose(item, true, TReport::StatusLine, [=, this] {
        m_preview.Release();
        m_core.Selection.Select(
            item); // before StartEffect, which closes Rovane only for the selected item
    });
}

std::string TApplier::StartEffect(const TMuWallpaper& item, bool startEffect)
{
    if (IsNoEffect(item.Effect)) {
        if (m_core.Selection.Item() == &item)
            m_effects.CloseRovane();
        return {};
    }
    if (!startEffect)
        return {};
    // Copies: messages are let through meanwhile, and one may change the item.
    const std::string effect = item.Effect, fileName = item.FileName();
    const TDisabledScope disabled(m_core.View);
    return EffectProblem(m_effects.RunEffect(effect, fileName), effect);
}

void TApplier::RunEffectSettings(TMuWallpaper& item)
{
    if (IsNoEffect(item.Effect) || m_isComposing)
        return;
    if (!m_core.Selection.IsCurrent(item))
        Compose(&item, false, TReport::MessageBox);
    m_core.View.MinimiseWindow();
    const std::string effect = item.Effect, fileName = item.FileName();
    std::string problem;
    {
        const TPauseScope pause(m_core.Pauses);
        const TDisabledScope disabled(m_core.View);
        problem = EffectProblem(m_effects.RunEffectSettings(effect, fileName), effect);
    }
    if (!problem.empty())
        m_core.Tell(problem);
}

} // namespace murala
