// The main window's actions: what they do, and when they can be done.

#include "uMain.h"

#include "uCategory.h"
#include "uConfiguration.h"
#include "uDisplayMode.h"
#include "uFileDialogs.h"
#include "uGradientDesk.h"
#include "uGradientEditor.h"
#include "uIconBoxOptions.h"
#include "uMainCalendar.h"
#include "uPath.h"
#include "uShippedFile.h"
#include "uVersion.h"
#include "uWindowSystem.h"
#include "uWxBitmap.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/aboutdlg.h>
#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/utils.h>
#include <wx/versioninfo.h>
#include <wx/wupdlock.h>

namespace murala
{

// Binds every action: what it does, when it is enabled, when it is checked.

void TfMain::BindWallpaperActions()
{
    TSelection& selection = m_murala.Core.Selection;
    const auto bind = [this](TActionId id, std::function<void()> execute,
                             std::function<bool()> enabled = {}) {
        alMain[id].OnExecute = std::move(execute);
        alMain[id].OnEnabled = std::move(enabled);
    };
    const auto has = [this](int count) {
        return [this, count] { return m_murala.Core.List.Count() >= count; };
    };
    // For actions on one item.
    const auto bindItem = [&](TActionId id, const std::function<void(TMuWallpaper&)>& execute) {
        bind(
            id, [&selection, execute] { execute(*selection.Item()); },
            [&selection] { return selection.Count() > 0; });
    };
    bind(aAdd, [this] { aAddExecute(); });
    bind(aAddSamples, [this] { m_murala.Desk.AddSamples(); });
    bindItem(aRemove, [this](TMuWallpaper&) { m_murala.Desk.RemoveSelected(); });
    bindItem(aRename, [this](TMuWallpaper&) { m_panel->Wallpapers().EditTitle(); });
    bind(
        aSelectAll, [&selection] { selection.SelectAll(); }, has(1));
    bindItem(aApply, [this](TMuWallpaper& item) { m_murala.Applier.Apply(item); });
    bindItem(aApplyAndMinimize, [this](TMuWallpaper& item) {
        m_murala.Applier.Apply(item);
        MinimiseWindow();
    });
    bind(
        aNext, [this] { m_murala.Applier.Next(); }, has(2));
    bind(
        aPrevious, [this] { m_murala.Applier.Previous(); }, has(1));
    bindItem(aRefreshThumbnail,
             [this](TMuWallpaper&) { m_panel->Wallpapers().RefreshThumbnails(); });
    bindItem(aShellOpen, [this](TMuWallpaper& i) { m_murala.Session.Open(i, TShellVerb::Open); });
    bindItem(aShellEdit, [this](TMuWallpaper& i) { m_murala.Session.Open(i, TShellVerb::Edit); });
    bindItem(aChangeCategory, [this](TMuWallpaper&) { aChangeCategoryExecute(); });
    bindItem(aDesktopColor, [this](TMuWallpaper&) { aDesktopColorExecute(); });
}

void TfMain::BindItemActions()
{
    TSelection& selection = m_murala.Core.Selection;
    const auto hasSelection = [&selection] { return selection.Count() > 0; };
    for (const TDisplayModeRow& row : DisplayModes()) {
        const TDisplayMode mode = row.Mode;
        TAction& action = alMain[std::ranges::find(alMain.All(), row.Action, &TAction::Name)->Id];
        action.OnExecute = [this, mode] {
            m_murala.Editor.SetDisplayMode(m_murala.Core.Selection.Items(), mode);
        };
        action.OnEnabled = hasSelection;
        action.OnChecked = [&selection, mode] {
            const TMuWallpaper* item = selection.Item();
            return item != nullptr && item->DisplayMode == mode;
        };
    }
    alMain[aDisplayNext].OnExecute = [this] {
        m_murala.Editor.StepDisplayMode(m_murala.Core.Selection.Items());
    };
    alMain[aDisplayNext].OnEnabled = hasSelection;

    TAction& transparent = alMain[aTransparentIcons];
    transparent.OnExecute = [this] {
        m_murala.Editor.ToggleTransparentIcons(m_murala.Core.Selection.Items());
    };
    transparent.OnEnabled = [this, hasSelection] {
        return hasSelection() && m_services.IconView.CanBeAsked();
    };
    transparent.OnChecked = [&selection] {
        const TMuWallpaper* item = selection.Item();
        return item != nullptr && item->TransparentIcons;
    };
}

void TfMain::BindWindowActions()
{
    static constexpr TActionId sizes[] = {aMiniSize, aNormalSize, aLargeSize};
    for (std::size_t i = 0; i < std::size(sizes); ++i) {
        const auto size = static_cast<TPreviewSize>(i);
        alMain[sizes[i]].OnExecute = [this, size] { SetPreviewSize(size); };
        alMain[sizes[i]].OnChecked = [this, size] {
            return m_murala.Core.Settings.Window.PreviewSize == size;
        };
    }
    static constexpr TActionId views[] = {aViewList, aViewThumbnails};
    for (std::size_t i = 0; i < std::size(views); ++i) {
        const auto mode = static_cast<TViewMode>(i);
        alMain[views[i]].OnExecute = [this, mode] { SetViewMode(mode); };
        alMain[views[i]].OnChecked = [this, mode] {
            return m_murala.Core.Settings.Window.ViewMode == mode;
        };
    }
    alMain[aNextView].OnExecute = [this] {
        SetViewMode(m_murala.Core.Settings.Window.ViewMode == vmList ? vmThumbnails : vmList);
    };
    static constexpr TActionId thumbnails[] = {aThumbSmall, aThumbNormal, aThumbLarge};
    for (std::size_t i = 0; i < std::size(thumbnails); ++i) {
        const auto size = static_cast<TThumbnailSize>(i);
        alMain[thumbnails[i]].OnExecute = [this, size] { SetThumbnailSize(size); };
        alMain[thumbnails[i]].OnChecked = [this, size] {
            return m_murala.Core.Settings.Window.ThumbnailSize == size;
        };
    }
    alMain[aExit].OnExecute = [this] {
        m_murala.Tray.Disable();
        Close();
    };
    alMain[aOptions].OnExecute = [this] { RestoreWindow(); };
    alMain[aAbout].OnExecute = [this] { aAboutExecute(); };
}

void TfMain::BindSystemActions()
{
    TSessionEntry& session = m_murala.Session;
    const TMuSettings& settings = m_murala.Core.Settings;
    alMain[aDisplayProperties].OnExecute = [&session] { session.OpenDisplayProperties(); };
    alMain[aDisplayProperties].OnEnabled = [this] {
        return m_services.Launcher.HasDisplayProperties();
    };
    alMain[aMuralaHelp].OnExecute = [this, &session] { session.OpenHelp(m_panel->HelpPage()); };
    alMain[aGetWallpaper].OnExecute = [&session] { session.OpenDownloadPage(); };
    alMain[aConfiguration].OnExecute = [this] { aConfigurationExecute(); };

    TAction& start = alMain[aStartAtStartup];
    start.OnExecute = [&session] { session.SetStartAtStartup(!session.StartAtStartup()); };
    start.OnChecked = [&session] { return session.StartAtStartup(); };
    TAction& apply = alMain[aApplyOnStartup];
    apply.OnExecute = [&] { session.SetApplyOnStartup(!settings.Preferences.ApplyOnStartup); };
    apply.OnChecked = [&settings] { return settings.Preferences.ApplyOnStartup; };
    apply.OnEnabled = [&session] { return session.StartAtStartup(); };
    TAction& next = alMain[aNextOnStartup];
    next.OnExecute = [&] { session.SetNextOnStartup(!settings.Preferences.NextOnStartup); };
    next.OnChecked = [&settings] { return settings.Preferences.NextOnStartup; };
    next.OnEnabled = [&] {
        return session.StartAtStartup() && settings.Preferences.ApplyOnStartup;
    };
}

int TfMain::RunModal(wxDialog& dialog)
{
    const TPauseScope pause(m_murala.Core.Pauses);
    return dialog.ShowModal();
}

void TfMain::aAddExecute()
{
    std::string folder = m_murala.Core.Settings.Memory.WallpaperPath;
    // The first time the dialog begins in the folder of sample pictures.
    if (folder.empty() || folder == m_services.ProgramFolder)
        folder = FindShippedFile(m_services, "samples").value_or(folder);
    wxFileDialog dialog(this, "Add", ToWx(folder), "", OpenFilter(PictureFileKinds()),
                        wxFD_OPEN | wxFD_MULTIPLE | wxFD_FILE_MUST_EXIST);
    if (RunModal(dialog) != wxID_OK)
        return;
    wxArrayString chosen;
    dialog.GetPaths(chosen);
    std::vector<std::string> files;
    for (const wxString& path : chosen)
        files.push_back(path.utf8_string());
    if (files.empty())
        return;
    m_murala.Desk.AddFiles(files);
    m_murala.Desk.RememberFolder(FolderPart(files.front()));
}

void TfMain::aDesktopColorExecute()
{
    const TItems items = m_murala.Core.Selection.Items();
    const TMuWallpaper* item = m_murala.Core.Selection.Item();
    if (item == nullptr || m_murala.Core.Updating)
        return;
    wxColourData preset;
    preset.SetChooseFull(true);
    preset.SetColour(ToWxColour(item->DesktopColor));
    wxColourDialog cdColor(this, &preset);
    if (RunModal(cdColor) == wxID_OK)
        m_murala.Editor.SetDesktopColor(items, FromWxColour(cdColor.GetColourData().GetColour()));
}

void TfMain::aAboutExecute()
{
    wxAboutDialogInfo info;
    info.SetName("Murala");
    info.SetVersion(ToWx(Version));
    info.SetDescription("Shows your pictures on the desktop.\n\n" +
                        wxGetLibraryVersionInfo().GetVersionString() + ", libjpeg-turbo");
    info.SetCopyright("(C) 2026 The Murala developers, MIT licence");
    info.SetIcon(ProgramIcon());
    const TPauseScope pause(m_murala.Core.Pauses);
    wxAboutBox(info, this);
}

void TfMain::aConfigurationExecute()
{
    TfConfiguration dialog(this, m_murala, alMain);
    if (RunModal(dialog) == wxID_OK)
        m_murala.Configurator.Confirm(dialog.Configuration());
}

void TfMain::aChangeCategoryExecute()
{
    const TItems items = m_murala.Core.Selection.Items();
    TfCategory dialog(this, m_murala.Desk.Categories(), m_murala.Core.Selection.Item()->Category);
    if (RunModal(dialog) == wxID_OK)
        m_murala.Desk.SetCategory(items, dialog.Category());
}

void TfMain::SetPreviewSize(TPreviewSize size)
{
    if (size < psMini || size > psLarge)
        size = psNormal;
    {
        const wxWindowUpdateLocker lock(this);
        const TValueScope updating(m_murala.Core.Updating, true);
        m_murala.Core.Settings.Window.PreviewSize = size;
        m_panel->FitRightPanel();
    }
    m_murala.Preview.PreviewChanged(false);
    m_murala.Storage.SaveSettings(TSaveFlags().set(sfPreviewSize));
}

void TfMain::SetViewMode(TViewMode mode)
{
    m_murala.Core.Settings.Window.ViewMode = mode == vmThumbnails ? vmThumbnails : vmList;
    m_panel->Wallpapers().ShowViewMode();
    UpdateHints();
    m_murala.Storage.SaveSettings(TSaveFlags().set(sfViewMode));
}

void TfMain::SetThumbnailSize(TThumbnailSize size)
{
    m_murala.Core.Settings.Window.ThumbnailSize =
        size >= tsSmall && size <= tsLarge ? size : tsNormal;
    m_panel->Wallpapers().ShowThumbnailSize();
    m_murala.Storage.SaveSettings(TSaveFlags().set(sfThumbnailSize));
}

void TfMain::BindAddOnActions()
{
    TAddOnDesk& addOns = m_murala.AddOns;
    const TAddOnSwitches& switches = m_murala.Core.Settings.AddOns;
    for (const TAddOn& addOn : AddOnList()) {
        TAction& action = alMain[addOn.Switch];
        action.OnExecute = [&] { addOns.Switch(addOn.Use, !(switches.*addOn.Use)); };
        action.OnChecked = [&] { return switches.*addOn.Use; };
    }

    alMain[aNewGradient].OnExecute = [this] { aNewGradientExecute(); };
    alMain[aCalendarOptions].OnExecute = [this] { aCalendarOptionsExecute(); };
    alMain[aIconBoxOptions].OnExecute = [this] { aIconBoxOptionsExecute(); };
    alMain[aConfigureAddOn].OnExecute = [this] { alMain.Execute(m_panel->AddOnOptions()); };
    alMain[aConfigureAddOn].OnEnabled = [this] {
        const TActionId options = m_panel != nullptr ? m_panel->AddOnOptions() : ActionCount;
        return options != ActionCount && alMain[options].Enabled();
    };
}

void TfMain::aNewGradientExecute()
{
    TfGradientEditor dialog(this);
    if (RunModal(dialog) == wxID_OK)
        AddGradient(m_murala.Core, m_murala.Desk, m_murala.Storage, dialog.Shade(),
                    dialog.Direction());
}

void TfMain::aCalendarOptionsExecute()
{
    TfMainCalendar dialog(this, m_services);
    if (RunModal(dialog) == wxID_OK)
        m_murala.AddOns.CalendarChanged();
}

void TfMain::aIconBoxOptionsExecute()
{
    TfIconBoxOptions dialog(this, m_murala.Core.Settings.IconBox);
    if (RunModal(dialog) == wxID_OK)
        m_murala.AddOns.SetIconBox(dialog.Settings());
}

} // namespace murala
