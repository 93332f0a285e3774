// Effects: programs in the folder "Plugins" that are started on the applied picture.
#pragma once

#include "uLauncher.h"
#include "uSiblings.h"

#include <string>
#include <string_view>
#include <vector>

namespace murala
{

inline constexpr std::string_view EffectNotLaunchedText = "The effect (%s) could not be launched.";
inline constexpr std::string_view RovaneRunningText =
    "Rovane is already running. Please close Rovane and retry.";

enum class TEffectStart {
    Done,
    NotLaunched,   // EffectNotLaunchedText with the effect's name
    RovaneRunning, // RovaneRunningText
};

// Empty or "(None)" in any letter case.
bool IsNoEffect(std::string_view name);

class TEffects
{
public:
    TEffects(const std::string& programFolder, TLauncher& launcher, TSiblings& siblings,
             TMessageLoop& loop);

    // In the order of the file system.
    std::vector<std::string> ListEffects() const;

    // Starts the effect on the picture, or its settings. Of Rovane only one copy may run, so that a
    // running one is closed first. Takes a second, in which messages are let through only at its
    // end: the caller disables the main window.
    TEffectStart RunEffect(const std::string& name, const std::string& picture);
    TEffectStart RunEffectSettings(const std::string& name, const std::string& picture);

    // The shell's result, 0 for a failure.
    TShellResult LaunchEffect(const std::string& name, const std::string& picture,
                              bool settingsMode);

    // False when Rovane runs and does not close.
    bool CloseRovane();

private:
    TEffectStart Run(const std::string& name, const std::string& picture, bool settingsMode);

    std::string m_folder;
    TLauncher& m_launcher;
    TSiblings& m_siblings;
    TMessageLoop& m_loop;
};

} // namespace murala
