// What each system does its own way with files.
#pragma once

#include "uSafeFile.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace murala
{

// Whether there is a file (no folder) of that name. `error` is set when that cannot be told: "not
// found" is no error.
bool HasFile(const std::filesystem::path& path, std::error_code& error);

// As fopen. Null, with errno set, when it cannot be opened.
std::FILE* OpenNamedFile(const std::filesystem::path& path, const char* mode);

// False when rights or a write-protected disk forbid to make files in the folder; a full disk does
// not.
bool MayMakeFiles(const std::filesystem::path& folder);

// Whether everything written so far has reached the disk; errno is set when not.
bool FlushToDisk(std::FILE* file);

// Puts `from` in the place of `to`, in one step.
std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to,
                           TFlush flush);

// After a rename in the folder: makes that survive a power failure as far as the system can.
void FlushFolder(const std::filesystem::path& folder);

} // namespace murala
