// Services that remember what they were asked, for driving the program without a desktop.
#pragma once

#include "uDesktopFakes.h"
#include "uFakeDoor.h"
#include "uServices.h"
#include "uTextFakes.h"
#include "uTrayFakes.h"

#include <string>

namespace murala
{

struct TFakeServices {
    TFakeDoor Door;
    TDoor* RealDoor = nullptr; // where there is a toolkit
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
    TFixedText Text;
    TFakeClock Clock;
    TFakeLocale Locale;
    TFakeTrayArea TrayArea;
    std::string ProgramFolder;

    TServices Services()
    {
        return {RealDoor != nullptr ? *RealDoor : Door,
                Desktop,
                IconView,
                TaskBar,
                Autostart,
                FileMenu,
                FileQueue,
                Launcher,
                Siblings,
                ScreenSaver,
                SessionEnd,
                MessageLoop,
                Text,
                Clock,
                Locale,
                TrayArea,
                EnglishDateNames(),
                ProgramFolder,
                ProgramFolder + "murala"};
    }
};

} // namespace murala
