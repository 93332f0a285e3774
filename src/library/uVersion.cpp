#include "uVersion.h"

namespace murala
{

const std::string_view Version = MURALA_VERSION;

std::optional<std::string> AboutProgram(std::string_view program, std::string_view usage,
                                        const std::vector<std::string>& arguments)
{
    if (arguments.size() != 1)
        return std::nullopt;
    if (arguments.front() == "--version")
        return std::string(program).append(" ").append(Version).append("\n");
    if (arguments.front() == "--help")
        return std::string(usage);
    return std::nullopt;
}

} // namespace murala
