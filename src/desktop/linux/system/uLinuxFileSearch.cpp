#include "uFileSearch.h"
#include "uFolders.h"
#include "uPath.h"
#include "uText.h"

#include <algorithm>
#include <fnmatch.h>
#include <unistd.h>

namespace murala
{

namespace
{

std::optional<std::string> FirstMatch(const std::filesystem::path& folder,
                                      const std::string& pattern)
{
    std::vector<std::string> names;
    for (const auto& entry : EntriesOf(folder)) {
        std::string name = PathText(entry.filename());
        if (fnmatch(pattern.c_str(), name.c_str(), FNM_NOESCAPE) == 0)
            names.push_back(std::move(name));
    }
    const auto first = std::ranges::min_element(names);
    return first == names.end() ? std::nullopt : std::optional(*first);
}

} // namespace

std::optional<std::string> FindFirstName(const std::string& pattern)
{
    const std::string name = FileNamePart(pattern);
    std::error_code error;
    if (name.empty())
        return std::nullopt;
    if (std::filesystem::exists(std::filesystem::symlink_status(NativePath(pattern), error)))
        return name;
    // Only "*" and "?" are special, not the brackets that fnmatch knows.
    if (name.find_first_of("*?") == std::string::npos)
        return std::nullopt;
    const std::string folder = FolderPart(pattern);
    return FirstMatch(folder.empty() ? "." : NativePath(folder), ReplaceAll(name, "[", "[[]"));
}

std::vector<std::string> FindPrograms(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : EntriesOf(NativePath(folder))) {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(entry, ignored) && access(entry.c_str(), X_OK) == 0)
            names.push_back(PathText(entry.filename()));
    }
    return names;
}

std::string ProgramFileName(std::string_view name)
{
    return std::string(name);
}

} // namespace murala
