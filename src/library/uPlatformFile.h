// What each system does its own way with files.
#pragma once

#include "uSafeFile.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace murala
{

// As fopen, with a UTF-8 name. Null, with errno set, when it cannot be opened.
std::FILE* OpenNamedFile(const std::string& path, const char* mode);

// Whether everything written so far has reached the disk; errno is set when not.
bool FlushToDisk(std::FILE* file);

// Puts `from` in the place of `to`, in one step.
std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to,
                           TFlush flush);

// After a rename in the folder: makes that survive a power failure as far as the system can.
void FlushFolder(const std::filesystem::path& folder);

} // namespace murala
