// Helpers for paths. They go by the path's own form: one with a drive letter or "\\" in front is a
// Windows path, divided by "\", "/" and ":"; any other is divided by "/" alone.
#pragma once

#include "uFileError.h"

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

// The value that a path in a setting stands for: itself when it says where to begin, else below
// `folder`.
std::string ResolvePath(std::string_view folder, std::string_view path);

// The path as the file system's functions take it, and back; both throw EFileError when there is no
// such name. Where names are characters and not bytes, bytes that are no UTF-8 are read as
// DisplayText does.
std::filesystem::path NativePath(std::string_view path);
std::string PathText(const std::filesystem::path& path);

// Whether there is a file of that name. Throws EFileError when that cannot be told, and when a
// folder stands in its place.
bool FileExists(std::string_view path);
// Whether a file can be reached; every error says no.
bool IsReachableFile(std::string_view path);
// No error when the file is absent or cannot be deleted.
void DeleteFileIfPresent(std::string_view path);

} // namespace murala
