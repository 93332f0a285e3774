#include "uFileSearch.h"
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
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::string name = PathText(entry->path().filename());
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
    // A bracket is an ordinary character.
    if (name.find_first_of("*?") == std::string::npos)
        return std::nullopt;
    const std::string folder = FolderPart(pattern);
    return FirstMatch(folder.empty() ? "." : NativePath(folder), ReplaceAll(name, "[", "[[]"));
}

std::vector<std::string> FindPrograms(const std::string& folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(NativePath(folder), error), end;
         !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored) && access(entry->path().c_str(), X_OK) == 0)
            names.push_back(PathText(entry->path().filename()));
    }
    return names;
}

std::string ProgramFileName(std::string_view name)
{
    return std::string(name);
}

} // namespace murala
