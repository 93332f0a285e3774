// Services that remember what they were asked, for driving the program without a desktop.
#pragma once

#include "uDesktopFakes.h"
#include "uServices.h"

#include <string>

namespace murala
{

struct TFakeServices {
    TFakeDesktop Desktop;
    TFakeLocale Locale;
    TFakeClock Clock;
    TFakeRegistry Registry;
    TFakeShellWindows ShellWindows;
    TFakeScreenSaver ScreenSaver;
    TFakeLauncher Launcher;
    TFakeSiblings Siblings;
    TFakeMessageLoop MessageLoop;
    std::string ProgramFolder;

    TServices Services()
    {
        return {Desktop,      Locale,   Clock,    Registry,    ShellWindows,
                ScreenSaver,  Launcher, Siblings, MessageLoop, ProgramFolder,
                ProgramFolder + "murala"};
    }
};

} // namespace murala
