#include "uPath.h"

#include "uPlatformFile.h"
#include "uText.h"

#include <type_traits>

namespace murala
{

namespace fs = std::filesystem;

namespace
{

bool IsAsciiLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Where the file name begins.
std::size_t FileNameStart(std::string_view path)
{
    const std::size_t divider = path.find_last_of(IsWindowsPath(path) ? "\\/:" : "/");
    return divider == std::string_view::npos ? 0 : divider + 1;
}

} // namespace

bool IsWindowsPath(std::string_view path)
{
    return path.starts_with("\\\\") ||
           (path.size() >= 2 && IsAsciiLetter(path[0]) && path[1] == ':');
}

std::string FileNamePart(std::string_view path)
{
    return std::string(path.substr(FileNameStart(path)));
}

std::string FolderPart(std::string_view path)
{
    return std::string(path.substr(0, FileNameStart(path)));
}

std::string ExtensionPart(std::string_view path)
{
    const std::string name = FileNamePart(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot);
}

std::string WithTrailingDivider(std::string_view folder)
{
    const bool windows = IsWindowsPath(folder);
    std::string result(folder);
    if (!folder.empty() && folder.back() != '/' && !(windows && folder.back() == '\\'))
        result += windows ? '\\' : '/';
    return result;
}

std::string JoinPath(std::string_view folder, std::string_view name)
{
    return WithTrailingDivider(folder).append(name);
}

std::string ResolvePath(std::string_view folder, std::string_view path)
{
    if (!IsWindowsPath(folder))
        return path.starts_with('/') ? std::string(path) : JoinPath(folder, path);
    if (IsWindowsPath(path))
        return std::string(path);
    const bool beginsAtRoot = path.starts_with('\\') || path.starts_with('/');
    return beginsAtRoot ? std::string(folder.substr(0, 2)).append(path) : JoinPath(folder, path);
}

std::filesystem::path NativePath(std::string_view path)
try {
    if constexpr (std::is_same_v<fs::path::value_type, char>)
        return {std::string(path)};
    const std::string text = DisplayText(path);
    return {std::u8string(text.begin(), text.end())};
} catch (const fs::filesystem_error& error) {
    throw EFileError("There can be no file " + std::string(path) + ": " + error.code().message());
}

std::string PathText(const std::filesystem::path& path)
try {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
} catch (const fs::filesystem_error& error) {
    throw EFileError("A file has a name that is no text: " + error.code().message());
}

bool FileExists(std::string_view path)
{
    std::error_code error;
    const bool exists = HasFile(NativePath(path), error);
    if (error)
        throw EFileError("Cannot look for " + std::string(path) + ": " + error.message());
    if (!exists && fs::is_directory(NativePath(path), error))
        throw EFileError(std::string(path) + " is a folder");
    return exists;
}

bool IsReachableFile(std::string_view path)
try {
    return FileExists(path);
} catch (const EFileError&) {
    return false;
}

void DeleteFileIfPresent(std::string_view path)
{
    std::error_code ignored;
    if (IsReachableFile(path))
        fs::remove(NativePath(path), ignored);
}

} // namespace murala
