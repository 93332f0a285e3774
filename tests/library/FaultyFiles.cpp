#include "uFaultyFiles.h"
#include "uPlatformFile.h"

#include <cerrno>

#include <unistd.h>

// The home's own operations, compiled under another name.
namespace murala_system
{

enum class TFlush;
bool HasFile(const std::filesystem::path& path, std::error_code& error);
std::FILE* OpenNamedFile(const std::filesystem::path& path, const char* mode);
bool FlushToDisk(std::FILE* file);
std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to,
                           TFlush flush);
void FlushFolder(const std::filesystem::path& folder);

} // namespace murala_system

namespace murala
{

TFileFaults FileFaults;

bool HasFile(const std::filesystem::path& path, std::error_code& error)
{
    if (!FileFaults.IsNextBad())
        return murala_system::HasFile(path, error);
    error = std::make_error_code(std::errc::io_error);
    return false;
}

std::FILE* OpenNamedFile(const std::filesystem::path& path, const char* mode)
{
    if (FileFaults.IsNextBad()) {
        errno = EIO;
        return nullptr;
    }
    std::FILE* file = murala_system::OpenNamedFile(path, mode);
    if (file == nullptr || !FileFaults.IsNextBad())
        return file;
    // Nothing can be read from it, or written to it.
    close(fileno(file));
    return file;
}

bool FlushToDisk(std::FILE* file)
{
    return !FileFaults.IsNextBad() && murala_system::FlushToDisk(file);
}

std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to,
                           TFlush flush)
{
    return FileFaults.IsNextBad()
               ? std::make_error_code(std::errc::io_error)
               : murala_system::RenameOver(from, to, static_cast<murala_system::TFlush>(flush));
}

void FlushFolder(const std::filesystem::path& folder)
{
    murala_system::FlushFolder(folder);
}

} // namespace murala
