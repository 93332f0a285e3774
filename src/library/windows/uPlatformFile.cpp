#include "uPlatformFile.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

namespace murala
{

namespace
{

// Indexers and virus scanners hold a file for a moment after it was touched.
constexpr int Attempts = 10;
constexpr std::chrono::milliseconds Pause{20};

// Repeats `attempt` for as long as it fails because another program holds the file.
template<class TAttempt>
void Insist(TAttempt attempt)
{
    for (int i = 0; i < Attempts && attempt(); ++i)
        std::this_thread::sleep_for(Pause);
}

// Whether the error says that another program has the file open.
bool IsHeld(DWORD error)
{
    constexpr DWORD cloudFileInUse = 391; // a cloud service is copying the file
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
           error == ERROR_LOCK_VIOLATION || error == cloudFileInUse;
}

bool IsFolder(const std::filesystem::path& path)
{
    struct _stat64 status = {};
    return _wstat64(path.c_str(), &status) == 0 && (status.st_mode & S_IFDIR) != 0;
}

bool HasMark(const std::filesystem::path& path, DWORD marks)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & marks) != 0;
}

// Whether waiting is in vain: the name is a folder's, or it is to be written and is marked as
// read-only, or no file may be made there.
bool IsDeniedForGood(const std::filesystem::path& path, bool forWriting)
{
    return HasMark(path, FILE_ATTRIBUTE_DIRECTORY | (forWriting ? FILE_ATTRIBUTE_READONLY : 0)) ||
           (forWriting && GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES &&
            GetLastError() == ERROR_FILE_NOT_FOUND);
}

// Lets other programs rename and delete the file while it is open, which the C library's functions
// do not. Null when it cannot be opened.
std::FILE* OpenShared(const std::filesystem::path& path)
{
    constexpr DWORD everything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ, everything, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return nullptr;
    const int number =
        _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_RDONLY | _O_BINARY);
    if (number < 0) {
        CloseHandle(handle);
        return nullptr;
    }
    std::FILE* file = _fdopen(number, "rb");
    if (file == nullptr)
        _close(number);
    return file;
}

// The system's error numbers for "there is no such file". errno has the same value for a share or a
// drive that does not answer, where the file may well be.
constexpr unsigned long NotFoundErrors[] = {2, 3, 123, 161};

} // namespace

bool HasFile(const std::filesystem::path& path, std::error_code& error)
{
    // Unlike _wstat64 this leaves the system's error number.
    constexpr int existence = 0;
    if (_waccess(path.c_str(), existence) == 0)
        return !IsFolder(path);
    if (std::ranges::find(NotFoundErrors, _doserrno) == std::end(NotFoundErrors))
        error = {static_cast<int>(_doserrno), std::system_category()};
    return false;
}

std::FILE* OpenNamedFile(const std::filesystem::path& path, const char* mode)
{
    // "N": programs that are started later do not inherit the file.
    const std::string modeText = std::string(mode) + "N";
    const std::wstring wideMode(modeText.begin(), modeText.end());
    std::FILE* file = nullptr;
    Insist([&] {
        file = modeText == "rbN" ? OpenShared(path) : nullptr;
        if (file == nullptr)
            file = _wfopen(path.c_str(), wideMode.c_str()); // its errno says why
        const int reason = file == nullptr ? errno : 0;
        const bool isHeld =
            reason == EACCES && !IsDeniedForGood(path, modeText.substr(0, 2) != "rb");
        errno = reason;
        return isHeld;
    });
    return file;
}

// Besides the folder's rights, a write-protected drive and programs that guard folders forbid it,
// so a file is made for a moment.
bool MayMakeFiles(const std::filesystem::path& folder)
{
    const auto probe = folder / ("Murala." + std::to_string(GetCurrentProcessId()) + ".probe");
    const HANDLE file = CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        return CloseHandle(file) != FALSE;
    const DWORD error = GetLastError();
    return error != ERROR_ACCESS_DENIED && error != ERROR_WRITE_PROTECT;
}

bool FlushToDisk(std::FILE* file)
{
    return std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
}

std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to,
                           TFlush flush)
{
    const DWORD flags =
        MOVEFILE_REPLACE_EXISTING | (flush == TFlush::ToDisk ? MOVEFILE_WRITE_THROUGH : 0);
    DWORD error = ERROR_SUCCESS;
    Insist([&] {
        error =
            MoveFileExW(from.c_str(), to.c_str(), flags) != FALSE ? ERROR_SUCCESS : GetLastError();
        return IsHeld(error) && !HasMark(to, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY);
    });
    return {static_cast<int>(error), std::system_category()};
}

void FlushFolder(const std::filesystem::path&)
{
} // the file system keeps a journal of its names

} // namespace murala
