// Reading the settings and the list at the start, and writing them after every change.
#pragma once

#include "uCore.h"

#include <string>

namespace murala
{

class TStorage
{
public:
    explicit TStorage(TCore& core) : m_core(core) {}

    // `placement` is the window's present one. Settings that cannot be read stay as they are (their
    // defaults at first); that is told once.
    void LoadSettings(const TPlacement& placement);
    // The list file and the current wallpaper. What cannot be read is told to the user; the whole
    // file is then kept under another name before it is written again.
    void LoadList();

    // Both are skipped while Updating. Failures are told to the user, the same one once.
    void SaveList();
    void SaveSettings(TSaveFlags parts);

private:
    void TellOnce(std::string& told, const std::string& problem);
    // Before a file that could not be read is written: keeps a copy of it.
    void KeepIfUnreadable(bool& isUnreadable, const std::string& path);
    void WriteList();
    void WriteSettings(TSaveFlags parts);

    TCore& m_core;
    bool m_isListUnreadable = false, m_areSettingsUnreadable = false;
    std::string m_toldListProblem, m_toldSettingsProblem;
};

} // namespace murala
