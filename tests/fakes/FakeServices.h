// Services that remember what they were asked, for driving the program without a desktop.
#pragma once

#include "uDesktopFakes.h"
#include "uFakeDoor.h"
#include "uServices.h"
#include "uTextFakes.h"
#include "uTrayFakes.h"

#include <string>
#include <utility>
#include <vector>

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

    // What was asked of the user's desktop and session, one line each; reading counts for nothing.
    std::vector<std::string> Touched() const
    {
        std::vector<std::string> touched = Desktop.Calls;
        touched.insert(touched.end(), Launcher.Started.begin(), Launcher.Started.end());
        const std::pair<const char*, int> counts[] = {{"labels", IconView.Paintings},
                                                      {"autostart", Autostart.Changes},
                                                      {"file menu", FileMenu.Changes},
                                                      {"sibling", Siblings.Notified}};
        for (const auto& [what, count] : counts)
            touched.insert(touched.end(), static_cast<std::size_t>(count), what);
        return touched;
    }

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
