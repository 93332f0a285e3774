#include "uShippedFile.h"

#include "uPath.h"

#include <filesystem>

namespace murala
{

std::optional<std::string> FindShippedFile(const TServices& services, std::string_view name)
{
    const std::string beside = FolderPart(services.ProgramFile);
    for (const std::string& folder :
         {services.ProgramFolder, beside, JoinPath(beside, "../share/murala")}) {
        const auto path = NativePath(JoinPath(folder, name)).lexically_normal();
        std::error_code absent;
        if (std::filesystem::exists(path, absent))
            return PathText(path);
    }
    return std::nullopt;
}

} // namespace murala
