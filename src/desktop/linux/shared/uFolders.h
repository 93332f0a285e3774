// The folders of the user that programs share.
#pragma once

#include <filesystem>
#include <optional>

namespace murala
{

std::filesystem::path UserDataFolder();   // $XDG_DATA_HOME or ~/.local/share
std::filesystem::path UserConfigFolder(); // $XDG_CONFIG_HOME or ~/.config

// What belongs to every copy of Murala of this user: in the user's data folder.
std::filesystem::path UserMuralaFolder();

// $XDG_RUNTIME_DIR, else a folder in /tmp that only this user may enter. Nothing when that name is
// taken by somebody else.
std::optional<std::filesystem::path> RuntimeFolder();

} // namespace murala
