// What the program runs on: one object for each capability of the platform.
#pragma once

#include "uClock.h"
#include "uDesktop.h"
#include "uLauncher.h"
#include "uLocale.h"
#include "uMessageLoop.h"
#include "uRegistry.h"
#include "uScreenSaver.h"
#include "uShellWindows.h"
#include "uSiblings.h"

#include <memory>
#include <string>

namespace murala
{

struct TServices {
    TDesktop& Desktop;
    TLocale& Locale;
    TClock& Clock;
    TRegistry& Registry;
    TShellWindows& ShellWindows;
    TScreenSaver& ScreenSaver;
    TLauncher& Launcher;
    TSiblings& Siblings;
    TMessageLoop& MessageLoop;
    std::string ProgramFolder; // with its trailing divider
    std::string ProgramFile;   // full path
};

// The real ones of this home.
class THomeServices
{
public:
    THomeServices();
    TServices Services();
    TRegistry& Registry() { return *m_registry; }

private:
    std::string m_folder;
    std::unique_ptr<TDesktop> m_desktop;
    std::unique_ptr<TLocale> m_locale;
    std::unique_ptr<TClock> m_clock;
    std::unique_ptr<TRegistry> m_registry;
    std::unique_ptr<TShellWindows> m_shellWindows;
    std::unique_ptr<TScreenSaver> m_screenSaver;
    std::unique_ptr<TLauncher> m_launcher;
    std::unique_ptr<TSiblings> m_siblings;
    std::unique_ptr<TMessageLoop> m_messageLoop;
};

} // namespace murala
