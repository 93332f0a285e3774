#include "uProgramFolder.h"

#include "uPath.h"
#include "uPlatformFile.h"
#include "uSettings.h"
#include "uWallpaper.h"

namespace murala
{

namespace
{

void CopyMissingFile(const std::string& from, const std::string& to, std::string_view name)
try {
    const std::string source = JoinPath(from, name), target = JoinPath(to, name);
    if (FileExists(source) && !FileExists(target))
        ReplaceWholeFile(target, ReadWholeFile(source), TFlush::ToDisk);
} catch (const EFileError&) {
    // Murala starts without it; the file beside the program stays as it is.
}

} // namespace

std::string ProgramFolder()
{
    const std::string beside = FolderPart(ProgramFile());
    return ChooseProgramFolder(IsDataBesideProgram(beside) ? beside : "", UserMuralaFolder());
}

std::string ChooseProgramFolder(const std::string& beside, const std::filesystem::path& user)
{
    if (!beside.empty() && MayMakeFiles(NativePath(beside)))
        return beside;
    std::error_code error;
    std::filesystem::create_directories(user, error);
    if (error)
        throw EFileError("The folder " + PathText(user) + " could not be made: " + error.message());
    std::string folder = WithTrailingDivider(PathText(user));
    if (!beside.empty())
        for (const std::string_view name : {SettingsFileName, ListFileName})
            CopyMissingFile(beside, folder, name);
    return folder;
}

} // namespace murala
