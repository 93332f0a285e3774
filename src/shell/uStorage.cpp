#include "uStorage.h"

#include "uFileError.h"
#include "uShippedFile.h"
#include "uText.h"

#include <new>
#include <utility>

namespace murala
{

namespace
{

// What to tell the user about the error.
std::string ReasonOf(const std::exception& error)
{
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return "There is not enough memory.";
    return error.what();
}

} // namespace

TIniFile TStorage::LoadSettingsFile(const std::string& path)
{
    TIniFile file = TIniFile::Load(path);
    if (IsNewUsersFile(file))
        AddFirstSettings(file, FirstSettings());
    return file;
}

const TIniFile& TStorage::FirstSettings()
{
    if (m_firstSettings)
        return *m_firstSettings;
    m_firstSettings.emplace();
    if (const auto path = FindShippedFile(m_core.Services, FirstSettingsFileName))
        try {
            m_firstSettings = TIniFile::Load(*path);
        } catch (const std::exception& error) {
            m_firstSettingsProblem = FormatText("The first settings could not be read.\n\n%s\n\n"
                                                "Murala starts with its own.",
                                                {ReasonOf(error)});
        }
    return *m_firstSettings;
}

void TStorage::LoadSettings(const TPlacement& placement)
{
    const TSettingsDefaults defaults{m_core.Services.ProgramFolder, m_core.Services.Clock.Now(),
                                     placement};
    try {
        m_settingsFile.Read([&](const std::string& path) {
            m_core.Settings = murala::LoadSettings(LoadSettingsFile(path), defaults);
        });
        m_toldSettingsProblem.clear();
    } catch (const std::exception& error) {
        if (!m_haveSettings)
            m_core.Settings = murala::LoadSettings(TIniFile(), defaults);
        TellOnce(m_toldSettingsProblem,
                 FormatText("The settings could not be read.\n\n%s\n\nBefore the settings are "
                            "saved again, the file is kept under another name.",
                            {ReasonOf(error)}));
    }
    m_haveSettings = true;
    if (const std::string problem = std::exchange(m_firstSettingsProblem, ""); !problem.empty())
        m_core.Tell(problem);
    try {
        m_core.List.SetThumbnailFolder(m_core.Settings.Memory.ThumbnailFolder);
    } catch (const EFileError&) {
        // Thumbnails are then made anew at every start, because there is no folder to keep them in.
    }
}

void TStorage::LoadList()
{
    try {
        m_listFile.Read([this](const std::string& path) { m_core.List.LoadFromFile(path); });
    } catch (const std::exception& error) {
        m_core.Tell(FormatText("The wallpaper list could not be read completely.\n\n%s\n\n"
                               "%d wallpapers were loaded. Before the list is saved again, the "
                               "file is kept under another name.",
                               {ReasonOf(error), std::to_string(m_core.List.Count())}));
    }
    m_core.Listeners.Tell(&TListener::RowsChanged);
    LoadCurrent();
}

void TStorage::LoadCurrent()
{
    int current = m_core.List.Count() > 0 ? 0 : -1;
    try {
        m_settingsFile.Read([&](const std::string& path) {
            current = LoadCurrentWallpaper(TIniFile::Load(path), m_core.List,
                                           m_core.Services.Siblings.GetVeyraDesktop());
        });
    } catch (const std::exception&) {
        // The first wallpaper is taken for the current one. Before the settings are saved again,
        // the file, which names the right one, is kept under another name.
    }
    m_core.Selection.SetCurrent(current >= 0 ? &m_core.List.Item(current) : nullptr);
}

void TStorage::ReloadSettings()
{
    const bool isUnsaved = !m_toldSettingsProblem.empty();
    if (!m_haveSettings || isUnsaved)
        return;
    try {
        m_settingsFile.Read([&](const std::string& path) {
            m_core.Settings = murala::ReloadSettings(
                LoadSettingsFile(path), {m_core.Services.ProgramFolder, 0, {}}, m_core.Settings);
        });
    } catch (const std::exception&) {
        // The settings stay as they are.
    }
}

void TStorage::Write(TUserFile& file, const TUserFile::TWork& write)
{
    if (const std::string kept = file.Write(write); !kept.empty())
        m_core.Status.Note(FormatText("The unreadable file was kept as %s", {kept}));
}

// Every change saves: without this, each would tell the user of the same problem again.
void TStorage::TellOnce(std::string& told, const std::string& problem)
{
    if (m_core.IsSilent || std::exchange(told, problem) != problem)
        m_core.Tell(problem);
}

void TStorage::SaveList()
{
    if (m_core.Updating)
        return;
    try {
        Write(m_listFile, [this](const std::string& path) { m_core.List.SaveToFile(path); });
        m_toldListProblem.clear();
    } catch (const std::exception& error) {
        TellOnce(m_toldListProblem,
                 FormatText("The wallpaper list could not be saved.\n\n%s", {ReasonOf(error)}));
    }
    SaveSettings(AllSaveFlags);
}

void TStorage::WriteSettings(const std::string& path, TSaveFlags parts)
{
    const TMuWallpaper* current = m_core.Selection.Current();
    TListState list{m_core.List.Count(), current != nullptr ? current->FileName() : "", 0};
    if (parts[sfWallpaperCurrent] && current != nullptr)
        list.Desktop = m_core.Services.Siblings.GetVeyraDesktop();
    // The file is read again before it is written, so that what the user has written into it
    // meanwhile stays.
    TIniFile file = LoadSettingsFile(path);
    murala::SaveSettings(file, m_core.Settings, list, parts);
    file.Save(path);
}

void TStorage::SaveSettings(TSaveFlags parts)
{
    if (m_core.Updating || parts.none())
        return;
    try {
        m_core.Settings.Window.IsVisible = m_core.View.IsWindowVisible();
        m_core.Settings.Window.Placement = m_core.View.NormalPlacement();
        Write(m_settingsFile, [=, this](const std::string& path) { WriteSettings(path, parts); });
        m_toldSettingsProblem.clear();
    } catch (const std::exception& error) {
        TellOnce(m_toldSettingsProblem,
                 FormatText("The settings could not be saved.\n\n%s", {ReasonOf(error)}));
    }
}

} // namespace murala
