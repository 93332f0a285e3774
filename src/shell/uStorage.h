// Reading the settings and the list at the start, and writing them after every change.
#pragma once

#include "uCore.h"
#include "uUserFile.h"

#include <optional>
#include <string>

namespace murala
{

class TStorage
{
public:
    explicit TStorage(TCore& core)
        : m_core(core), m_listFile(core.FilePath(ListFileName)),
          m_settingsFile(core.FilePath(SettingsFileName))
    {
    }

    // `placement` is the window's present one. When the file cannot be read, the settings stay as
    // they are (at first: the defaults), the user is told once, and the file is kept under another
    // name before it is written again.
    void LoadSettings(const TPlacement& placement);
    // The list file and the current wallpaper. What cannot be read is told to the user; the whole
    // file is then kept under another name before it is written again.
    void LoadList();
    // The current wallpaper of the present virtual desktop.
    void LoadCurrent();
    // Reads the settings again while the program runs, because another program may have changed
    // them. SettingKeys says which values stay as they are in memory. Does nothing while there are
    // settings that could not be saved.
    void ReloadSettings();

    // Both are skipped while Updating. Failures are told to the user, the same one once.
    void SaveList();
    void SaveSettings(TSaveFlags parts);

private:
    // The user's file; a new user's with the first settings in it. Throws EFileError.
    TIniFile LoadSettingsFile(const std::string& path);
    // What comes with the program for new users; read when it is asked for first.
    const TIniFile& FirstSettings();
    void TellOnce(std::string& told, const std::string& problem);
    // Tells under which name an unreadable file was kept.
    void Write(TUserFile& file, const TUserFile::TWork& write);
    void WriteSettings(const std::string& path, TSaveFlags parts);

    TCore& m_core;
    TUserFile m_listFile, m_settingsFile;
    std::optional<TIniFile> m_firstSettings;
    std::string m_firstSettingsProblem; // not told yet
    bool m_haveSettings = false;
    std::string m_toldListProblem, m_toldSettingsProblem;
};

} // namespace murala
