// Looking files up as the home's own file system does.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

// The stored name, without its folder, of the first file or folder that `pattern` names or, with
// "*" and "?" in its last part, matches.
std::optional<std::string> FindFirstName(const std::string& pattern);

// The effects in a folder (which ends in a divider): "*.exe" on Windows, executable files on Linux;
// without the ending.
std::vector<std::string> FindPrograms(const std::string& folder);
// The program's file name for a name of FindPrograms.
std::string ProgramFileName(std::string_view name);

} // namespace murala
