#include "uFolders.h"
#include "uPath.h"
#include "uProgramFolder.h"
#include "uSettings.h"

namespace murala
{

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
