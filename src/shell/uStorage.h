// Reading the settings and the list at the start, and writing them after every change.
#pragma once

#include "uCore.h"
#include "uUserFile.h"

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

    // `placement` is the window's present one. Settings that cannot be read stay as they are (their
    // defaults at first); that is told once, and the file is kept before it is written.
    void LoadSettings(const TPlacement& placement);
    // The list file and the current wallpaper. What cannot be read is told to the user; the whole
    // file is then kept under another name before it is written again.
    void LoadList();
    // The current wallpaper of the present virtual desktop.
    void LoadCurrent();
    // Reads the settings again, as another program may have left them, while this one runs: what is
    // only in memory stays, and everything, when what was to be saved could not be saved.
    void ReloadSettings();

    // Both are skipped while Updating. Failures are told to the user, the same one once.
    void SaveList();
    void SaveSettings(TSaveFlags parts);

private:
    void TellOnce(std::string& told, const std::string& problem);
    // Tells under which name an unreadable file was kept.
    void Write(TUserFile& file, const TUserFile::TWork& write);
    void WriteSettings(const std::string& path, TSaveFlags parts);

    TCore& m_core;
    TUserFile m_listFile, m_settingsFile;
    bool m_haveSettings = false;
    std::string m_toldListProblem, m_toldSettingsProblem;
};

} // namespace murala
