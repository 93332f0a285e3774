#include "uProgramEntry.h"

#include "uProcessPriority.h"
#include "uShellIntegration.h"
#include "uText.h"

namespace murala
{

TEntry EnterProgram(const std::vector<std::string>& arguments, TFileMenu& fileMenu,
                    TFileQueue& fileQueue, TInstanceLink& link)
{
    if (arguments.size() == 1 && arguments.front() == "/UNINSTALL") {
        SetShellIntegration(fileMenu, false);
        return IsShellIntegrated(fileMenu) ? TEntry::Failed : TEntry::End;
    }
    RaiseProcessPriority();
    const bool queued = QueueFilesFromCommandLine(fileQueue, arguments);
    // The other copy may have ended since it was found: then this one takes the files itself.
    while (true) {
        if (!link.IsRunning())
            link.Lock();
        if (!link.IsRunning())
            return TEntry::Run;
        link.Unlock();
        if (link.PostWake())
            return queued ? TEntry::End : TEntry::Failed;
    }
}

bool IsApplyStart(const std::vector<std::string>& arguments)
{
    return !arguments.empty() && SameTextAscii(arguments.front(), "/apply");
}

} // namespace murala
