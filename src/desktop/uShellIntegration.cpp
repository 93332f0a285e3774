#include "uShellIntegration.h"

#include "uFileSearch.h"
#include "uPath.h"
#include "uProgramFolder.h"
#include "uText.h"

namespace murala
{

namespace
{

TFileCommand AddToMurala()
{
    return {std::string(ShellVerb),
            {std::begin(ShellExtensions), std::end(ShellExtensions)},
            InstalledProgramFile()};
}

} // namespace

void SetShellIntegration(TFileMenu& menu, bool integrated)
{
    if (integrated)
        menu.AddShellCommand(AddToMurala());
    else
        menu.RemoveShellCommand(AddToMurala());
}

bool IsShellIntegrated(TFileMenu& menu)
{
    return menu.ShellCommandExists(AddToMurala());
}

std::string ShellIntegrationProblem()
{
    if (IsReachableFile(InstalledProgramFile()))
        return {};
    return FormatText("\"%s\" starts %s, which is not there. Install Murala first.",
                      {ShellVerb, InstalledProgramFile()});
}

std::vector<std::string> FindFilesOfArguments(const std::vector<std::string>& arguments)
{
    std::vector<std::string> files;
    for (const std::string& argument : arguments) {
        const auto name = FindFirstName(argument);
        if (!name)
            continue;
        const auto file = std::filesystem::absolute(NativePath(argument));
        files.push_back(PathText((file.parent_path() / NativePath(*name)).lexically_normal()));
    }
    return files;
}

bool QueueFilesFromCommandLine(TFileQueue& queue, const std::vector<std::string>& arguments)
{
    const auto files = FindFilesOfArguments(arguments);
    return files.empty() || queue.QueueFiles(files);
}

} // namespace murala
