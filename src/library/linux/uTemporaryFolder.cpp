#include "uTemporaryFolder.h"

#include "uPath.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace murala
{

namespace
{

// The folder that a variable of the environment names; empty when it names none.
std::string FolderVariable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? WithTrailingDivider(value) : std::string();
}

std::vector<std::string> Candidates()
{
    std::vector<std::string> folders;
    if (const std::string runtime = FolderVariable("XDG_RUNTIME_DIR"); !runtime.empty())
        folders.push_back(runtime + "murala");
    const std::string shared = FolderVariable("TMPDIR");
    folders.push_back((shared.empty() ? "/tmp/" : shared) + "murala-" + std::to_string(geteuid()));
    return folders;
}

// Makes the folder where it is missing. False, with errno set, when that fails or when it is a link
// or somebody else's: others may have put it there.
bool MakePrivate(const std::string& folder)
{
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return false;
    const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (handle < 0)
        return false;
    struct stat status = {};
    const bool isOwn = fstat(handle, &status) == 0 && status.st_uid == geteuid() &&
                       (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    close(handle);
    errno = EPERM;
    return isOwn;
}

} // namespace

std::string TemporaryFolder()
{
    std::string problem = "There is no folder for temporary files.";
    for (const std::string& folder : Candidates()) {
        if (MakePrivate(folder))
            return folder + '/';
        problem += "\n" + folder + ": " + std::strerror(errno);
    }
    throw EFileError(problem);
}

} // namespace murala
