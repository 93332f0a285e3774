#include "uPlatformFile.h"

#include "uPath.h"

#include <chrono>
#include <io.h>
#include <thread>

namespace murala
{

namespace
{

// Indexers and virus scanners hold a file for a moment after it was touched.
constexpr int RenameAttempts = 10;
constexpr std::chrono::milliseconds RenamePause{20};

} // namespace

std::FILE* OpenNamedFile(const std::string& path, const char* mode)
{
    // "N": programs that are started later do not inherit the file.
    const std::string modeText = std::string(mode) + "N";
    return _wfopen(NativePath(path).c_str(),
                   std::wstring(modeText.begin(), modeText.end()).c_str());
}

bool FlushToDisk(std::FILE* file)
{
    return std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
}

std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to,
                           TFlush)
{
    std::error_code error;
    for (int attempt = 0; attempt < RenameAttempts; ++attempt) {
        std::filesystem::rename(from, to, error);
        if (error != std::errc::permission_denied)
            break;
        std::this_thread::sleep_for(RenamePause);
    }
    return error;
}

void FlushFolder(const std::filesystem::path&)
{
} // the file system keeps a journal of its names

} // namespace murala
