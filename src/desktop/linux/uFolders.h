// The folders of the user that programs share.
#pragma once

#include <filesystem>

namespace murala
{

std::filesystem::path UserDataFolder();   // $XDG_DATA_HOME or ~/.local/share
std::filesystem::path UserConfigFolder(); // $XDG_CONFIG_HOME or ~/.config

// $XDG_RUNTIME_DIR, else a folder in /tmp that only this user may enter. Throws
// std::filesystem::filesystem_error when that name is taken by somebody else.
std::filesystem::path RuntimeFolder();

} // namespace murala
