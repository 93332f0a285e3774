// The program in the user's session: starting with it, the file manager's menu, files from other
// copies, other programs for a picture.
#pragma once

#include "uLauncher.h"
#include "uLibraryDesk.h"

#include <string>
#include <string_view>

namespace murala
{

class TSessionEntry
{
public:
    TSessionEntry(TCore& core, TStorage& storage, TLibraryDesk& desk)
        : m_core(core), m_storage(storage), m_desk(desk)
    {
    }

    // Reads the session's state; to be called after the settings were read.
    void Load();

    // Whether Murala starts with the session.
    bool StartAtStartup() const { return m_startAtStartup; }
    void SetStartAtStartup(bool start);
    void SetApplyOnStartup(bool apply);
    void SetNextOnStartup(bool next);

    // Whether pictures have "Add to Murala" in the file manager's menus.
    bool IsShellIntegrated() const { return m_isShellIntegrated; }
    // Shows a message when the program that the menu would start is missing.
    void SetShellIntegration(bool integrated);

    // Adds the files that other copies have queued.
    void ImportQueuedFiles();

    void Open(const TMuWallpaper& item, TShellVerb verb);
    // Opens the help file if there is one, else the page of that name of our own.
    void OpenHelp(std::string_view page);
    // Opens the web page that was set when Murala was built, else our own page.
    void OpenDownloadPage();
    void OpenDisplayProperties() { m_core.Services.Launcher.OpenDisplayProperties(); }

private:
    std::string StartupCommand() const;
    void SetRunValue();
    void OpenPage(const std::string& page);
    void OpenShipped(std::string_view name);

    TCore& m_core;
    TStorage& m_storage;
    TLibraryDesk& m_desk;
    bool m_startAtStartup = false;
    bool m_isShellIntegrated = false;
};

} // namespace murala
