// The main window's actions: what they do, and when they can be done.

#include "uMain.h"

#include "uPath.h"
#include "uPreviewSizes.h"
#include "uWallpaperSchedule.h"

#include "../resources/murala.xpm"

#include <algorithm>

#include <wx/aboutdlg.h>
#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/wupdlock.h>

namespace murala
{

namespace
{

constexpr const char* PictureFilter =
    "All (*.jpg;*.jpeg;*.bmp)|*.jpg;*.jpeg;*.bmp|JPEG Image File (*.jpg)|*.jpg|"
    "JPEG Image File (*.jpeg)|*.jpeg|Bitmaps (*.bmp)|*.bmp";

// The sample pictures beside the program, or where an installed program has them.
std::optional<std::string> SamplesFolder(const std::string& programFile)
{
    for (const char* place : {"samples", "../share/murala/samples"})
        if (std::string folder = JoinPath(FolderPart(programFile), place);
            std::filesystem::is_directory(NativePath(folder)))
            return folder;
    return std::nullopt;
}

} // namespace

void TfMain::BindWallpaperActions()
{
    const auto hasSelection = [this] { return lvWallpaper->GetSelectedItemCount() > 0; };
    const auto bind = [this](std::string_view name, std::function<void()> execute,
                             std::function<bool()> enabled = {}) {
        alMain[name].OnExecute = std::move(execute);
        alMain[name].OnEnabled = std::move(enabled);
    };
    bind("aAdd", [this] { aAddExecute(); });
    bind(
        "aRemove", [this] { m_murala.RemoveSelected(); }, hasSelection);
    bind(
        "aApply", [this] { m_murala.ApplySelected(); }, hasSelection);
    bind(
        "aApplyAndMinimize",
        [this] {
            m_murala.ApplySelected();
            Iconize();
        },
        hasSelection);
    bind(
        "aSelectAll", [this] { lvWallpaper->SelectAll(); },
        [this] { return m_murala.List.Count() > 0; });
    bind(
        "aRename", [this] { lvWallpaper->EditLabel(SelectedRow()); }, hasSelection);
    bind(
        "aNext", [this] { m_murala.Next(); }, [this] { return m_murala.List.Count() > 1; });
    bind(
        "aPrevious", [this] { m_murala.Previous(); }, [this] { return m_murala.List.Count() > 0; });
    bind(
        "aDesktopColor", [this] { aDesktopColorExecute(); }, hasSelection);
}

void TfMain::BindDisplayModeActions()
{
    static constexpr std::string_view names[] = {
        "aDisplayTiled",       "aDisplayCentered",      "aDisplayStretched",
        "aDisplayMirrorTiled", "aDisplayFitHorizontal", "aDisplayFitVertical",
    };
    const auto hasSelection = [this] { return m_murala.SelectedItem() != nullptr; };
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const auto mode = static_cast<TDisplayMode>(i);
        TAction& action = alMain[names[i]];
        action.OnExecute = [this, mode] { m_murala.SetDisplayMode(mode); };
        action.OnEnabled = hasSelection;
        action.OnChecked = [this, mode] {
            const TMuWallpaper* item = m_murala.SelectedItem();
            return item != nullptr && item->DisplayMode == mode;
        };
    }
    alMain["aDisplayNext"].OnExecute = [this] { m_murala.StepDisplayMode(); };
    alMain["aDisplayNext"].OnEnabled = hasSelection;
}

void TfMain::BindWindowActions()
{
    static constexpr std::string_view sizes[] = {"aMiniSize", "aNormalSize", "aLargeSize"};
    for (const TPreviewSize size : {psMini, psNormal, psLarge}) {
        alMain[sizes[size]].OnExecute = [this, size] { SetPreviewSize(size); };
        alMain[sizes[size]].OnChecked = [this, size] {
            return m_murala.Settings.PreviewSize == size;
        };
    }
    alMain["aExit"].OnExecute = [this] { Close(); };
    alMain["aAbout"].OnExecute = [this] { aAboutExecute(); };
}

void TfMain::BindSystemActions()
{
    const auto hasSelection = [this] { return m_murala.SelectedItem() != nullptr; };
    TAction& transparent = alMain["aTransparentIcons"];
    transparent.OnExecute = [this] { m_murala.ToggleTransparentIcons(); };
    transparent.OnEnabled = hasSelection;
    transparent.OnChecked = [this] {
        const TMuWallpaper* item = m_murala.SelectedItem();
        return item != nullptr && item->TransparentIcons;
    };
    alMain["aShellOpen"].OnExecute = [this] { m_murala.OpenSelected(TShellVerb::Open); };
    alMain["aShellOpen"].OnEnabled = hasSelection;
    alMain["aShellEdit"].OnExecute = [this] { m_murala.OpenSelected(TShellVerb::Edit); };
    alMain["aShellEdit"].OnEnabled = hasSelection;
    alMain["aDisplayProperties"].OnExecute = [this] { m_murala.OpenDisplayProperties(); };
    alMain["aSchedule"].OnExecute = [this] { aScheduleExecute(); };

    TAction& shell = alMain["aShellIntegration"];
    shell.OnExecute = [this] { m_murala.SetShellIntegration(!m_murala.IsShellIntegrated()); };
    shell.OnChecked = [this] { return m_murala.IsShellIntegrated(); };

    TAction& start = alMain["aStartAtStartup"];
    start.OnExecute = [this] { m_murala.SetStartAtStartup(!m_murala.StartAtStartup()); };
    start.OnChecked = [this] { return m_murala.StartAtStartup(); };
    TAction& apply = alMain["aApplyOnStartup"];
    apply.OnExecute = [this] { m_murala.SetApplyOnStartup(!m_murala.Settings.ApplyOnStartup); };
    apply.OnChecked = [this] { return m_murala.Settings.ApplyOnStartup; };
    apply.OnEnabled = [this] { return m_murala.StartAtStartup(); };
    TAction& next = alMain["aNextOnStartup"];
    next.OnExecute = [this] { m_murala.SetNextOnStartup(!m_murala.Settings.NextOnStartup); };
    next.OnChecked = [this] { return m_murala.Settings.NextOnStartup; };
    next.OnEnabled = [this] {
        return m_murala.StartAtStartup() && m_murala.Settings.ApplyOnStartup;
    };
}

// The schedule waits: a change would move the selection under the dialog.
int TfMain::RunModal(wxDialog& dialog)
{
    tSchedule.Stop();
    const int result = dialog.ShowModal();
    StartSchedule();
    return result;
}

void TfMain::aAddExecute()
{
    // A first add begins where there is something to see.
    const std::string folder =
        m_murala.List.Count() == 0
            ? SamplesFolder(m_services.ProgramFile).value_or(m_murala.Settings.WallpaperPath)
            : m_murala.Settings.WallpaperPath;
    wxFileDialog dialog(this, "Add", ToWx(folder), "", PictureFilter,
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
    m_murala.AddFiles(files);
    m_murala.RememberFolder(FolderPart(files.front()));
}

void TfMain::aDesktopColorExecute()
{
    const TMuWallpaper* item = m_murala.SelectedItem();
    if (item == nullptr || m_murala.Updating)
        return;
    wxColourData preset;
    preset.SetChooseFull(true);
    preset.SetColour(ToWxColour(item->DesktopColor));
    wxColourDialog cdColor(this, &preset);
    if (RunModal(cdColor) != wxID_OK)
        return;
    // Files handed over meanwhile have moved the selection.
    SelectRow(m_murala.List.IndexOf(item));
    m_murala.SetDesktopColor(FromWxColour(cdColor.GetColourData().GetColour()));
}

void TfMain::aAboutExecute()
{
    wxAboutDialogInfo info;
    info.SetName("Murala");
    info.SetVersion("1.0.0");
    info.SetDescription("Shows your pictures on the desktop.");
    info.SetCopyright("(C) 2026 The Murala developers");
    info.SetIcon(wxICON(murala));
    wxAboutBox(info, this);
}

void TfMain::aScheduleExecute()
{
    TfSchedule dialog(this, ScheduleOf(m_murala.Settings), m_murala.Settings.LastChangeDate);
    if (RunModal(dialog) != wxID_OK)
        return;
    m_murala.SetSchedule(dialog.Schedule());
    tScheduleTimer();
}

void TfMain::SetPreviewSize(TPreviewSize size)
{
    size = size >= psMini && size <= psLarge ? size : psNormal;
    const bool updating = m_murala.Updating;
    {
        const wxWindowUpdateLocker lock(this);
        m_murala.Updating = true;
        const wxSize preview = FromDIP(wxSize(PreviewSizes[size].first, PreviewSizes[size].second));
        m_murala.Settings.PreviewSize = size;
        // The pages below keep the width that they need.
        m_rightWidth = std::max(preview.x, m_pagesSize.x);
        m_previewHeight = preview.y;
        PlaceSplitters();
        m_murala.Updating = updating;
    }
    PreviewChanged(false);
    m_murala.SaveSettings(TSaveFlags().set(sfPreviewSize));
}

} // namespace murala
