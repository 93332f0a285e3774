// Programs that the session starts: the Run key's values as XDG autostart entries.
#pragma once

#include <optional>
#include <string>

namespace murala
{

// Empty when there is none, or when the user has switched it off in the desktop's own settings.
std::optional<std::string> ReadAutostart(const std::string& name);
bool WriteAutostart(const std::string& name, const std::string& command);
void DeleteAutostart(const std::string& name);

} // namespace murala
