// What a program tells about itself on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

// The project's version, as in "1.0.0".
extern const std::string_view Version;

// The text for "--version" or "--help" as the only argument; nothing for every other command line.
std::optional<std::string> AboutProgram(std::string_view program, std::string_view usage,
                                        const std::vector<std::string>& arguments);

} // namespace murala
