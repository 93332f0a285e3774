#include "uEffects.h"

#include "uFileSearch.h"
#include "uPath.h"
#include "uText.h"
#include "uWallpaper.h"

namespace murala
{

namespace
{
constexpr int LaunchPauseMs = 1000;

// The list file may be somebody else's: it must not name programs outside of the folder.
bool IsFileName(std::string_view name)
{
    return name.find_first_of("/\\:") == std::string_view::npos;
}

} // namespace

bool IsNoEffect(std::string_view name)
{
    return name.empty() || SameTextAscii(name, NoEffect);
}

TEffects::TEffects(const std::string& programFolder, TLauncher& launcher, TSiblings& siblings,
                   TMessageLoop& loop)
    : m_folder(WithTrailingDivider(JoinPath(programFolder, "Plugins"))), m_launcher(launcher),
      m_siblings(siblings), m_loop(loop)
{
}

std::vector<std::string> TEffects::ListEffects() const
{
    return FindPrograms(m_folder);
}

TEffectStart TEffects::RunEffect(const std::string& name, const std::string& picture)
{
    return Run(name, picture, false);
}

TEffectStart TEffects::RunEffectSettings(const std::string& name, const std::string& picture)
{
    return Run(name, picture, true);
}

TEffectStart TEffects::Run(const std::string& name, const std::string& picture, bool settingsMode)
{
    if (SameTextAscii(name, "Rovane") && !CloseRovane())
        return TEffectStart::RovaneRunning;
    return LaunchEffect(name, picture, settingsMode) != 0 ? TEffectStart::Done
                                                          : TEffectStart::NotLaunched;
}

TShellResult TEffects::LaunchEffect(const std::string& name, const std::string& picture,
                                    bool settingsMode)
{
    if (!IsFileName(name))
        return 0;
    const std::string parameters = '"' + picture + '"' + (settingsMode ? " /settings" : "");
    const TShellResult result = ShellOpen(m_launcher, m_folder + ProgramFileName(name), parameters);
    if (result < FirstShellSuccess)
        return 0;
    m_loop.Sleep(LaunchPauseMs);
    m_loop.HandlePendingMessages();
    return result;
}

bool TEffects::CloseRovane()
{
    const TWindowId window = m_siblings.FindRovane();
    return window == 0 || CloseWindowAndWait(m_siblings, m_loop, window);
}

} // namespace murala
