#include "uPath.h"

#include "uText.h"

namespace murala
{

namespace
{

constexpr std::string_view PictureExtensions[] = {".jpg", ".jpeg", ".bmp"};

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

bool HasPictureExtension(std::string_view path)
{
    const std::string extension = ExtensionPart(path);
    for (std::string_view known : PictureExtensions)
        if (SameTextAscii(extension, known))
            return true;
    return false;
}

std::filesystem::path NativePath(std::string_view path)
{
    return {std::u8string(path.begin(), path.end())};
}

std::string PathText(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool FileExists(std::string_view path)
{
    try {
        std::error_code error;
        const auto status = std::filesystem::status(NativePath(path), error);
        return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
    } catch (const std::filesystem::filesystem_error&) {
        return false; // no name that this system could have
    }
}

void DeleteFileIfPresent(std::string_view path)
{
    std::error_code error;
    if (FileExists(path))
        std::filesystem::remove(NativePath(path), error);
}

} // namespace murala
