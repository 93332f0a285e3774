#include "uPlatformFile.h"

#include <fcntl.h>
#include <unistd.h>

namespace murala
{

std::FILE* OpenNamedFile(const std::string& path, const char* mode)
{
    // "e": programs that are started later do not inherit the file.
    return std::fopen(path.c_str(), (std::string(mode) + "e").c_str());
}

bool FlushToDisk(std::FILE* file)
{
    return std::fflush(file) == 0 && fsync(fileno(file)) == 0;
}

std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::error_code error;
    std::filesystem::rename(from, to, error);
    return error;
}

void FlushFolder(const std::filesystem::path& folder)
{
    const char* name = folder.empty() ? "." : folder.c_str();
    const int handle = open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    // Some file systems refuse this; the new file is in its place all the same.
    fsync(handle);
    close(handle);
}

} // namespace murala
