#include "uFolders.h"
#include "uPath.h"
#include "uProgramFolder.h"
#include "uSafeFile.h"
#include "uSettings.h"

#include <fstream>

namespace murala
{

std::string ProgramFile()
{
    std::error_code error;
    return PathText(std::filesystem::read_symlink("/proc/self/exe", error));
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
    const std::filesystem::path folder = UserMuralaFolder();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        throw EFileError("The folder " + PathText(folder) +
                         " could not be made: " + error.message());
    return WithTrailingDivider(PathText(folder));
}

} // namespace murala
