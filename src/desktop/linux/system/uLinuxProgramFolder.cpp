#include "uPath.h"
#include "uProgramFolder.h"
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

bool IsDataBesideProgram(const std::string& folder)
{
    return FileExists(JoinPath(folder, SettingsFileName));
}

std::string InstalledProgramFile()
{
    return MURALA_INSTALLED_PROGRAM;
}

} // namespace murala
