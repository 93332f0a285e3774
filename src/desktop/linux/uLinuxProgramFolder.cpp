#include "uPath.h"
#include "uProgramFolder.h"
#include "uSettings.h"

#include <cstdlib>
#include <filesystem>

namespace murala
{

namespace
{

std::filesystem::path UserDataFolder()
{
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && data[0] == '/')
        return data;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home != nullptr ? home : "/") / ".local/share";
}

} // namespace

std::string ProgramFile()
{
    return PathText(std::filesystem::read_symlink("/proc/self/exe"));
}

std::string ProgramFolder()
{
    const std::string portable = FolderPart(ProgramFile());
    if (FileExists(JoinPath(portable, SettingsFileName)))
        return portable;
    const std::filesystem::path folder = UserDataFolder() / "murala";
    std::filesystem::create_directories(folder);
    return WithTrailingDivider(PathText(folder));
}

} // namespace murala
