// Services that remember what they were asked, for driving the program without a desktop.
#pragma once

#include "uDesktopFakes.h"
#include "uServices.h"

#include <string>

namespace murala
{

struct TFakeServices {
    TFakeDesktop Desktop;
    TFakeIconView IconView;
    TFakeTaskBar TaskBar;
    TFakeAutostart Autostart;
    TFakeFileMenu FileMenu;
    TFakeFileQueue FileQueue;
    TFakeLauncher Launcher;
    TFakeSiblings Siblings;
    TFakeScreenSaver ScreenSaver;
    TFakeSessionEnd SessionEnd;
    TFakeMessageLoop MessageLoop;
    TFakeClock Clock;
    TFakeLocale Locale;
    std::string ProgramFolder;

    TServices Services()
    {
        return {Desktop,     IconView, TaskBar,  Autostart,     FileMenu,
                FileQueue,   Launcher, Siblings, ScreenSaver,   SessionEnd,
                MessageLoop, Clock,    Locale,   ProgramFolder, ProgramFolder + "murala"};
    }
};

} // namespace murala
