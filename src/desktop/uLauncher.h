// Opening files, folders and settings with other programs.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace murala
{

enum class TShellVerb { Open, Edit, Explore };

// From 32 on it worked.
using TShellResult = std::uintptr_t;
inline constexpr TShellResult FirstShellSuccess = 32;

class TLauncher
{
public:
    virtual ~TLauncher() = default;

    // Starts what the user's shell has for the verb on the file; a program is run. `parameters` are
    // those of a program: a path in double quotes, and what follows it divided by blanks.
    virtual TShellResult Execute(TShellVerb verb, const std::string& file,
                                 const std::string& parameters) = 0;

    // The system's own settings of the wallpaper, and whether there are any.
    virtual bool HasDisplayProperties() = 0;
    virtual void OpenDisplayProperties() = 0;
};

inline TShellResult ShellOpen(TLauncher& launcher, const std::string& file,
                              const std::string& parameters = "")
{
    return launcher.Execute(TShellVerb::Open, file, parameters);
}

inline TShellResult ShellEdit(TLauncher& launcher, const std::string& file,
                              const std::string& parameters = "")
{
    return launcher.Execute(TShellVerb::Edit, file, parameters);
}

inline TShellResult ShellExplore(TLauncher& launcher, const std::string& folder,
                                 const std::string& parameters = "")
{
    return launcher.Execute(TShellVerb::Explore, folder, parameters);
}

std::unique_ptr<TLauncher> NewLauncher();

} // namespace murala
