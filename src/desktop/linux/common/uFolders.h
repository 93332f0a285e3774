// The folders of the user that programs share.
#pragma once

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

namespace murala
{

std::filesystem::path UserDataFolder();   // $XDG_DATA_HOME or ~/.local/share
std::filesystem::path UserConfigFolder(); // $XDG_CONFIG_HOME or ~/.config

// What lies in the folder; as much of it as can be read.
std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder,
                                             std::error_code& error);
std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder);

// $XDG_RUNTIME_DIR, else a folder in /tmp that only this user may enter. Nothing when that name is
// taken by somebody else.
std::optional<std::filesystem::path> RuntimeFolder();

} // namespace murala
