#include "uShellIntegration.h"

#include "uFileSearch.h"
#include "uPath.h"
#include "uPictureFormats.h"
#include "uProgramFolder.h"
#include "uText.h"

#include <optional>
#include <stdexcept>

namespace murala
{

namespace
{

TFileCommand AddToMurala()
{
    return {std::string(ShellVerb), UsualPictureExtensions(), InstalledProgramFile()};
}

std::optional<std::string> FindFile(const std::string& argument)
try {
    const auto name = FindFirstName(argument);
    if (!name)
        return std::nullopt;
    const auto file = std::filesystem::absolute(NativePath(argument));
    return PathText((file.parent_path() / NativePath(*name)).lexically_normal());
} catch (const std::runtime_error&) {
    return std::nullopt; // the name is impossible here, or relative to a folder that is gone
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
    for (const std::string& argument : arguments)
        if (auto file = FindFile(argument))
            files.push_back(std::move(*file));
    return files;
}

bool QueueFilesFromCommandLine(TFileQueue& queue, const std::vector<std::string>& arguments)
{
    const auto files = FindFilesOfArguments(arguments);
    return files.empty() || queue.QueueFiles(files);
}

} // namespace murala
