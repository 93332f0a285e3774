#include "uFolders.h"
#include "uPath.h"
#include "uProgramFolder.h"
#include "uSettings.h"

#include <fstream>

namespace murala
{

std::string ProgramFile()
{
    return PathText(std::filesystem::read_symlink("/proc/self/exe"));
}

std::vector<std::string> ProgramArguments()
{
    std::ifstream commandLine("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(commandLine, argument, '\0');)
        arguments.push_back(argument);
    if (!arguments.empty())
        arguments.erase(arguments.begin());
    return arguments;
}

std::string ProgramFolder()
{
    std::string portable = FolderPart(ProgramFile());
    if (FileExists(JoinPath(portable, SettingsFileName)))
        return portable;
    const std::filesystem::path folder = UserDataFolder() / "murala";
    std::filesystem::create_directories(folder);
    return WithTrailingDivider(PathText(folder));
}

} // namespace murala
