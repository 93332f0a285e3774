#include "uFileSearch.h"
#include "uWideText.h"

#include <memory>

namespace murala
{

namespace
{

struct TFindCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const noexcept
    {
        if (search != INVALID_HANDLE_VALUE)
            FindClose(search);
    }
};
using TFind = std::unique_ptr<HANDLE, TFindCloser>;

std::vector<std::string> FindNames(const std::string& pattern, std::size_t limit)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAW found{}; // the A form has too little room for long names in UTF-8
    const TFind search(FindFirstFileW(WideText(pattern).c_str(), &found));
    if (search.get() == INVALID_HANDLE_VALUE)
        return names;
    do {
        names.push_back(NarrowText(found.cFileName));
    } while (names.size() < limit && FindNextFileW(search.get(), &found) != FALSE);
    return names;
}

constexpr std::string_view ProgramEnding = ".exe";

} // namespace

std::optional<std::string> FindFirstName(const std::string& pattern)
{
    const auto names = FindNames(pattern, 1);
    return names.empty() ? std::nullopt : std::optional(names[0]);
}

std::vector<std::string> FindPrograms(const std::string& folder)
{
    std::vector<std::string> names = FindNames(folder + "*.exe", std::string::npos);
    for (std::string& name : names)
        name.resize(name.size() - std::min(name.size(), ProgramEnding.size()));
    return names;
}

std::string ProgramFileName(std::string_view name)
{
    return std::string(name) + std::string(ProgramEnding);
}

} // namespace murala
