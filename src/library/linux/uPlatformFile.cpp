#include "uPlatformFile.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace murala
{

namespace
{

// When a rename replaces a file, some file systems (ext4) write the new one to the disk at once,
// which takes time. Exchanging the two and deleting the old one avoids that, and readers still see
// one whole file or the other.
bool ExchangeOver(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(to, ignored) ||
        renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_EXCHANGE) != 0)
        return false;
    unlink(from.c_str());
    return true;
}

} // namespace

bool HasFile(const std::filesystem::path& path, std::error_code& error)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0)
        return !S_ISDIR(status.st_mode);
    if (errno != ENOENT && errno != ENOTDIR)
        error = {errno, std::generic_category()};
    return false;
}

std::FILE* OpenNamedFile(const std::filesystem::path& path, const char* mode)
{
    // "e": programs that are started later do not inherit the file.
    return std::fopen(path.c_str(), (std::string(mode) + "e").c_str());
}

bool MayMakeFiles(const std::filesystem::path& folder)
{
    return access(folder.c_str(), W_OK | X_OK) == 0 || (errno != EACCES && errno != EROFS);
}

bool FlushToDisk(std::FILE* file)
{
    return std::fflush(file) == 0 && fsync(fileno(file)) == 0;
}

std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to,
                           TFlush flush)
{
    std::error_code error;
    if (flush == TFlush::ToSystemCache && ExchangeOver(from, to))
        return error;
    std::filesystem::rename(from, to, error);
    return error;
}

void FlushFolder(const std::filesystem::path& folder)
{
    const char* name = folder.empty() ? "." : folder.c_str();
    const int handle = open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    // Some file systems refuse to flush a folder; the new file is in its place all the same.
    fsync(handle);
    close(handle);
}

} // namespace murala
