#include "uProgramEntry.h"

#include "uProcessPriority.h"
#include "uShellIntegration.h"
#include "uText.h"

namespace murala
{

TEntry EnterProgram(const std::vector<std::string>& arguments, TRegistry& registry,
                    TInstanceLink& link)
{
    if (arguments.size() == 1 && arguments.front() == "/UNINSTALL") {
        SetShellIntegration(registry, false);
        return TEntry::End;
    }
    RaiseProcessPriority();
    QueueFilesFromCommandLine(registry, arguments);
    // A copy that ends between being found and being woken leaves the files to this one.
    while (true) {
        if (!link.IsRunning())
            link.Lock();
        if (!link.IsRunning())
            return TEntry::Run;
        link.Unlock();
        if (link.PostWake())
            return TEntry::End;
    }
}

bool IsApplyStart(const std::vector<std::string>& arguments)
{
    return !arguments.empty() && SameTextAscii(arguments.front(), "/apply");
}

} // namespace murala
