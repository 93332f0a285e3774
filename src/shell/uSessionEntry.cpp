#include "uSessionEntry.h"

#include "uPath.h"
#include "uShellIntegration.h"
#include "uShippedFile.h"
#include "uText.h"

#include <utility>

namespace murala
{

void TSessionEntry::Load()
{
    m_startAtStartup = m_core.Services.Autostart.RunValueExists(std::string(ApplicationTitle));
    // Written again although it exists: the program may have been moved.
    if (m_startAtStartup)
        SetRunValue();
    m_isShellIntegrated = murala::IsShellIntegrated(m_core.Services.FileMenu);
}

std::string TSessionEntry::StartupCommand() const
{
    const std::string& program = m_core.Services.ProgramFile;
    return m_core.Settings.Preferences.ApplyOnStartup ? program + " /apply" : program;
}

void TSessionEntry::SetRunValue()
{
    m_core.Services.Autostart.SetRunValue(std::string(ApplicationTitle), StartupCommand());
}

void TSessionEntry::SetStartAtStartup(bool start)
{
    if (start)
        SetRunValue();
    else
        m_core.Services.Autostart.DeleteRunValue(std::string(ApplicationTitle));
    // An entry for all users of the machine may remain.
    m_startAtStartup = m_core.Services.Autostart.RunValueExists(std::string(ApplicationTitle));
}

void TSessionEntry::SetApplyOnStartup(bool apply)
{
    m_core.Settings.Preferences.ApplyOnStartup = apply;
    if (m_startAtStartup)
        SetRunValue();
    m_storage.SaveSettings(TSaveFlags().set(sfApplyOnStartup));
}

void TSessionEntry::SetNextOnStartup(bool next)
{
    m_core.Settings.Preferences.NextOnStartup = next;
    m_storage.SaveSettings(TSaveFlags().set(sfNextOnStartup));
}

void TSessionEntry::SetShellIntegration(bool integrated)
{
    murala::SetShellIntegration(m_core.Services.FileMenu, integrated);
    const bool was =
        std::exchange(m_isShellIntegrated, murala::IsShellIntegrated(m_core.Services.FileMenu));
    if (!integrated || was)
        return;
    if (const std::string problem = ShellIntegrationProblem(); !problem.empty())
        m_core.Tell(problem);
}

void TSessionEntry::ImportQueuedFiles()
{
    const TDisabledScope disabled(m_core.View);
    // In a loop: a copy that starts meanwhile may queue more.
    for (auto files = m_core.Services.FileQueue.TakeQueuedFiles(); !files.empty();
         files = m_core.Services.FileQueue.TakeQueuedFiles()) {
        m_desk.AddFiles(files);
        // When the session ends, the rest stays queued for the next start.
        if (m_core.IsSilent) {
            m_core.Services.FileQueue.QueueFiles(files);
            return;
        }
    }
}

void TSessionEntry::Open(const TMuWallpaper& item, TShellVerb verb)
{
    m_core.Services.Launcher.Execute(verb, item.FileName(), "");
}

void TSessionEntry::OpenShipped(std::string_view name)
{
    const auto file = FindShippedFile(m_core.Services, name);
    if (!file)
        return m_core.Tell(FormatText("%s is not installed.", {name}));
    OpenPage(*file);
}

void TSessionEntry::OpenPage(const std::string& page)
{
    if (ShellOpen(m_core.Services.Launcher, page) < FirstShellSuccess)
        m_core.Tell(FormatText("%s could not be opened. Is there a program for it?", {page}));
}

void TSessionEntry::OpenHelp(std::string_view page)
{
    if (const auto helpFile = FindShippedFile(m_core.Services, "help/MuralaHelp.chm"))
        OpenPage(*helpFile);
    else
        OpenShipped(FormatText("help/%s.html", {page}));
}

void TSessionEntry::OpenDownloadPage()
{
    constexpr std::string_view page = MURALA_DOWNLOAD_PAGE;
    if (page.empty())
        OpenShipped("GetWallpaper.html");
    else
        OpenPage(std::string(page));
}

} // namespace murala
