// The program without its windows: the list, the settings, and every rule that the main window's
// actions obey. Windows are seen only through TMainView.
#pragma once

#include "uCompose.h"
#include "uEffects.h"
#include "uMainView.h"
#include "uSchedule.h"
#include "uServices.h"
#include "uSettings.h"
#include "uSourcePicture.h"
#include "uWallpaper.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

// Which end of a tint is meant, and which of its channels.
enum class TTintEnd { Start, End };
enum class TTintChannel { All, Red, Green, Blue };

// What a failure to apply a wallpaper is reported with.
enum class TReport {
    MessageBox, // the user asked for it and waits
    StatusLine, // the program did it by itself
};

class TMurala
{
public:
    TMuWallpaperList List;
    TMuSettings Settings;
    // While it is set nothing is saved and nothing is applied again.
    bool Updating = true;

    TMurala(const TServices& services, TMainView& view);

    // Start and end.
    // `placement` is the window's present one.
    void LoadSettings(const TPlacement& placement);
    // The list file and the current wallpaper. A line that cannot be read is told to the user; the
    // whole file is then kept under another name before it is written again.
    void LoadList();
    void Close();

    // Saving (skipped while Updating; failures are told to the user).
    void SaveList();
    void SaveSettings(TSaveFlags parts);

    // State.
    // Index of the wallpaper on the desktop, -1 when there is none.
    int CurrentIndex() const { return m_current; }
    // The selected item or null.
    TMuWallpaper* SelectedItem() const;
    bool IsCurrentSelected() const;
    bool IsSortAscending() const { return m_sortAscending; }
    std::string StatusText() const;

    // The list.
    // Files that are in the list already are left out. An empty category: each file's folder.
    // Returns how many were added.
    int AddFiles(const std::vector<std::string>& fileNames, const std::string& category = {});
    void RememberFolder(const std::string& folder);
    void RemoveSelected();
    void Rename(int row, const std::string& title);
    // The same column again inverts the direction.
    void SortByColumn(TListColumn column);

    // The selected item.
    void SetDisplayMode(TDisplayMode mode);
    void StepDisplayMode();
    void SetGammaStyle(TGammaStyle style);
    // Changes the item; the list is saved by SaveList when the user lets the slider go.
    void SetTint(TTintEnd end, TTintChannel channel, int value);
    void SetDesktopColor(TColor color);
    void ToggleTransparentIcons();
    void SetEffect(const std::string& effect);

    // The desktop.
    void ApplySelected();
    // Composes and installs the current item. Whether it is on the desktop now.
    bool ComposeWallpaper(bool startEffect, TReport report = TReport::MessageBox);
    // Fewer than two wallpapers: nothing. Whether the next one is on the desktop now.
    bool Next(TReport report = TReport::MessageBox);
    void Previous();
    // Starts the settings of the selected item's effect, on the desktop where it has to be.
    void RunEffectSettings();
    std::vector<std::string> ListEffects() const { return m_effects.ListEffects(); }
    // The icons' labels as the current wallpaper wants them; the shell forgets it now and then.
    void RefreshTick();
    TSize ScreenSize() const { return m_services.Desktop.ScreenSize(); }

    // The schedule.
    void SetSchedule(const TScheduleSettings& schedule);
    void ScheduleTick();

    // Start with the session.
    bool StartAtStartup() const { return m_startAtStartup; }
    void SetStartAtStartup(bool start);
    void SetApplyOnStartup(bool apply);
    void SetNextOnStartup(bool next);

    // Other programs.
    // Whether pictures have "Add to Murala" in the file manager's menus.
    bool IsShellIntegrated() const { return m_isShellIntegrated; }
    void SetShellIntegration(bool integrated);
    // Takes in the files that other copies have queued.
    void ImportQueuedFiles();
    void OpenSelected(TShellVerb verb);
    void OpenDisplayProperties() { m_services.Launcher.OpenDisplayProperties(); }

    // The preview.
    // Loads the selected item's picture; an empty text when that worked, else what to show instead.
    std::string LoadPreview();
    // The selected item as it will look, `width` pixels wide, in the screen's proportions. Empty
    // while there is nothing to show.
    TBitmap PreviewPicture(int width);
    void ReleasePreview();

private:
    std::string FilePath(std::string_view name) const;
    void TellOnce(std::string& told, const std::string& problem);
    void ComposeItem(TMuWallpaper& item);
    void ApplyItemColor(TColor color);
    void ApplyLabels(const TMuWallpaper& item);
    void ApplyEffect(const TMuWallpaper& item, bool startEffect, TReport report);
    void ReportEffect(TEffectStart start, const std::string& effect, TReport report);
    void ReportProblem(TReport report, const std::string& text);
    bool ApplyRow(int row, TReport report);
    void ItemEdited();
    void LoadStartup();
    std::string StartupCommand() const;

    TServices m_services;
    TMainView& m_view;
    TEffects m_effects;
    TSourcePicture m_source;
    int m_current = -1;
    std::optional<TListColumn> m_sortColumn;
    bool m_sortAscending = true;
    bool m_isListUnreadable = false;
    bool m_isComposing = false;
    bool m_startAtStartup = false;
    bool m_isShellIntegrated = false;
    int m_failedChanges = 0; // of the schedule, one after the other
    std::string m_toldListProblem, m_toldSettingsProblem;
};

} // namespace murala
