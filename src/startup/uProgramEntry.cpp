#include "uProgramEntry.h"

#include "uProcessPriority.h"
#include "uShellIntegration.h"
#include "uText.h"
#include "uVersion.h"

namespace murala
{

namespace
{

constexpr std::string_view Usage =
    R"(usage: murala [/apply] [FILE...]

  FILE         is added to the library; * and ? are allowed
  /apply       as the first argument: applies the current wallpaper,
               or the next one if so configured
  /UNINSTALL   as the only argument: removes "Add to Murala" from the menus
               of the file managers
  --help       as the only argument: prints this
  --version    as the only argument: prints the version
)";

} // namespace

std::optional<std::string> AnswerBeforeEntry(const std::vector<std::string>& arguments)
{
    return AboutProgram("Murala", Usage, arguments);
}

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
