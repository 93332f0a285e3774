#include "uFolders.h"

#include "uProgramFolder.h"

#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace murala
{

namespace
{

// A relative path in these variables counts as none.
std::filesystem::path FolderFrom(const char* variable, const char* belowHome)
{
    const char* folder = std::getenv(variable);
    if (folder != nullptr && folder[0] == '/')
        return folder;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home != nullptr ? home : "/") / belowHome;
}

bool IsPrivate(const std::filesystem::path& folder)
{
    struct stat info {
    };
    return lstat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == getuid() &&
           (info.st_mode & 077U) == 0;
}

} // namespace

std::filesystem::path UserDataFolder()
{
    return FolderFrom("XDG_DATA_HOME", ".local/share");
}

std::filesystem::path UserConfigFolder()
{
    return FolderFrom("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path UserMuralaFolder()
{
    return UserDataFolder() / "murala";
}

std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder,
                                             std::error_code& error)
{
    std::vector<std::filesystem::path> entries;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder)
{
    std::error_code ignored;
    return EntriesOf(folder, ignored);
}

std::optional<std::filesystem::path> RuntimeFolder()
{
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && runtime[0] == '/' && access(runtime, W_OK | X_OK) == 0)
        return runtime;
    std::filesystem::path folder = "/tmp/murala-" + std::to_string(getuid());
    const bool isOurs = mkdir(folder.c_str(), 0700) == 0 || IsPrivate(folder);
    return isOurs ? std::optional(folder) : std::nullopt;
}

} // namespace murala
