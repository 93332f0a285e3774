#include "uStorage.h"

#include "uPath.h"
#include "uSafeFile.h"
#include "uText.h"

#include <new>
#include <utility>

namespace murala
{

namespace
{

// The reason of what was thrown; what is no failure of a file or of its text goes on.
std::string ReasonOf(const std::exception& error)
{
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return "There is not enough memory.";
    return error.what();
}

} // namespace

void TStorage::LoadSettings(const TPlacement& placement)
{
    const TSettingsDefaults defaults{m_core.Services.ProgramFolder, m_core.Services.Clock.Now(),
                                     placement};
    try {
        const TIniFile file = TIniFile::Load(m_core.FilePath(SettingsFileName));
        m_core.Settings = murala::LoadSettings(file, defaults);
        m_areSettingsUnreadable = false;
        m_toldSettingsProblem.clear();
    } catch (const std::exception& error) {
        if (!std::exchange(m_areSettingsUnreadable, true))
            m_core.Settings = murala::LoadSettings(TIniFile(), defaults);
        TellOnce(m_toldSettingsProblem,
                 FormatText("The settings could not be read.\n\n%s\n\nBefore the settings are "
                            "saved again, the file is kept under another name.",
                            {ReasonOf(error)}));
    }
    try {
        m_core.List.SetThumbnailFolder(m_core.Settings.ThumbnailFolder);
    } catch (const EFileError&) {
        // Thumbnails are then made without being kept; nothing is lost.
    }
}

void TStorage::LoadList()
{
    try {
        m_core.List.LoadFromFile(m_core.FilePath(ListFileName));
    } catch (const std::exception& error) {
        m_isListUnreadable = true;
        m_core.Tell(FormatText("The wallpaper list could not be read completely.\n\n%s\n\n"
                               "%d wallpapers were loaded. Before the list is saved again, the "
                               "file is kept under another name.",
                               {ReasonOf(error), std::to_string(m_core.List.Count())}));
    }
    int current = m_core.List.Count() > 0 ? 0 : -1;
    try {
        current = LoadCurrentWallpaper(TIniFile::Load(m_core.FilePath(SettingsFileName)),
                                       m_core.List, m_core.Services.Siblings.GetVeyraDesktop());
    } catch (const EFileError&) {
        m_areSettingsUnreadable = true; // the next reading tells
    }
    m_core.Listeners.Tell(&TListener::RowsChanged);
    m_core.Selection.SetCurrent(current >= 0 ? &m_core.List.Item(current) : nullptr);
}

void TStorage::KeepIfUnreadable(bool& isUnreadable, const std::string& path)
{
    if (!isUnreadable)
        return;
    if (FileExists(path))
        m_core.View.SetStatus(
            FormatText("The unreadable file was kept as %s", {KeepUnreadableFile(path)}));
    isUnreadable = false;
}

// Every change saves, and would tell the same again.
void TStorage::TellOnce(std::string& told, const std::string& problem)
{
    if (std::exchange(told, problem) != problem)
        m_core.Tell(problem);
}

void TStorage::WriteList()
{
    const std::string path = m_core.FilePath(ListFileName);
    KeepIfUnreadable(m_isListUnreadable, path);
    m_core.List.SaveToFile(path);
}

void TStorage::SaveList()
{
    if (m_core.Updating)
        return;
    try {
        WriteList();
        m_toldListProblem.clear();
    } catch (const std::exception& error) {
        TellOnce(m_toldListProblem,
                 FormatText("The wallpaper list could not be saved.\n\n%s", {ReasonOf(error)}));
    }
    SaveSettings(AllSaveFlags);
}

void TStorage::WriteSettings(TSaveFlags parts)
{
    const std::string path = m_core.FilePath(SettingsFileName);
    KeepIfUnreadable(m_areSettingsUnreadable, path);
    const TMuWallpaper* current = m_core.Selection.Current();
    TListState list{m_core.List.Count(), current != nullptr ? current->FileName() : "", 0};
    if (parts[sfWallpaperCurrent] && current != nullptr)
        list.Desktop = m_core.Services.Siblings.GetVeyraDesktop();
    // The file is read again each time: what the user wrote into it meanwhile stays.
    TIniFile file = TIniFile::Load(path);
    murala::SaveSettings(file, m_core.Settings, list, parts);
    file.Save(path);
}

void TStorage::SaveSettings(TSaveFlags parts)
{
    if (m_core.Updating || parts.none())
        return;
    try {
        m_core.Settings.WindowState = m_core.View.IsWindowVisible();
        m_core.Settings.Placement = m_core.View.NormalPlacement();
        WriteSettings(parts);
        m_toldSettingsProblem.clear();
    } catch (const std::exception& error) {
        TellOnce(m_toldSettingsProblem,
                 FormatText("The settings could not be saved.\n\n%s", {ReasonOf(error)}));
    }
}

} // namespace murala
