#include "uLauncher.h"

#include <windows.h>

#include <shellapi.h>

namespace murala
{

namespace
{

constexpr const char* Verbs[] = {"open", "edit", "explore"}; // in the order of TShellVerb

class TWindowsLauncher : public TLauncher
{
public:
    TShellResult Execute(TShellVerb verb, const std::string& file,
                         const std::string& parameters) override
    {
        return reinterpret_cast<TShellResult>(ShellExecuteA(nullptr, Verbs[static_cast<int>(verb)],
                                                            file.c_str(), parameters.c_str(),
                                                            nullptr, SW_SHOWNORMAL));
    }

    bool HasDisplayProperties() override { return true; }

    void OpenDisplayProperties() override
    {
        WinExec("rundll32 shell32.dll,Control_RunDLL desk.cpl,,0", SW_SHOW);
    }
};

} // namespace

std::unique_ptr<TLauncher> NewLauncher()
{
    return std::make_unique<TWindowsLauncher>();
}

} // namespace murala
