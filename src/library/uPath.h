// Helpers for paths. They go by the path's own form: one with a drive letter or "\\" in front is a
// Windows path, divided by "\", "/" and ":"; any other is divided by "/" alone.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace murala
{

bool IsWindowsPath(std::string_view path);

// The text after the last divider.
std::string FileNamePart(std::string_view path);

// The text up to and with the last divider; empty when there is none.
std::string FolderPart(std::string_view path);

// From the last "." of the file name on, with the dot; empty when there is none.
std::string ExtensionPart(std::string_view path);

// The path with one divider of its own form at its end. An empty path stays empty.
std::string WithTrailingDivider(std::string_view folder);

// WithTrailingDivider(folder) + name.
std::string JoinPath(std::string_view folder, std::string_view name);

// ".jpg", ".jpeg" or ".bmp", in any letter case.
bool HasPictureExtension(std::string_view path);

// The path as the file system's functions take it (UTF-8 in both homes), and back.
std::filesystem::path NativePath(std::string_view path);
std::string PathText(const std::filesystem::path& path);

bool FileExists(std::string_view path);
// No error when the file is absent.
void DeleteFileIfPresent(std::string_view path);

} // namespace murala
