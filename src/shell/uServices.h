// What the program runs on: one object for each capability of the platform.
#pragma once

#include "uAutostart.h"
#include "uClock.h"
#include "uDateNames.h"
#include "uDesktop.h"
#include "uDoor.h"
#include "uFileMenu.h"
#include "uFileQueue.h"
#include "uIconView.h"
#include "uLauncher.h"
#include "uLocale.h"
#include "uMessageLoop.h"
#include "uScreenSaver.h"
#include "uSessionEnd.h"
#include "uSiblings.h"
#include "uTaskBar.h"
#include "uTextDrawing.h"
#include "uTrayIcon.h"

#include <memory>
#include <string>

namespace murala
{

struct TServices {
    TDoor& Door;
    TDesktop& Desktop;
    TIconView& IconView;
    TTaskBar& TaskBar;
    TAutostart& Autostart;
    TFileMenu& FileMenu;
    TFileQueue& FileQueue;
    TLauncher& Launcher;
    TSiblings& Siblings;
    TScreenSaver& ScreenSaver;
    TSessionEnd& SessionEnd;
    TMessageLoop& MessageLoop;
    TTextDrawing& Text;
    TClock& Clock;
    TLocale& Locale;
    TTrayArea& TrayArea;
    TDateNames DateNames;      // of the user's language
    std::string ProgramFolder; // with its trailing divider
    std::string ProgramFile;   // full path
};

// The services of this home.
class THomeServices
{
public:
    // `door` must outlive them.
    explicit THomeServices(TDoor& door);
    TServices Services();

private:
    TDoor& m_door;
    std::string m_folder;
    std::unique_ptr<TDesktop> m_desktop;
    std::unique_ptr<TIconView> m_iconView;
    std::unique_ptr<TTaskBar> m_taskBar;
    std::unique_ptr<TAutostart> m_autostart;
    std::unique_ptr<TFileMenu> m_fileMenu;
    std::unique_ptr<TFileQueue> m_fileQueue;
    std::unique_ptr<TLauncher> m_launcher;
    std::unique_ptr<TSiblings> m_siblings;
    std::unique_ptr<TScreenSaver> m_screenSaver;
    std::unique_ptr<TSessionEnd> m_sessionEnd;
    std::unique_ptr<TMessageLoop> m_messageLoop;
    std::unique_ptr<TTextDrawing> m_text;
    std::unique_ptr<TClock> m_clock;
    std::unique_ptr<TLocale> m_locale;
    std::unique_ptr<TTrayArea> m_trayArea;
};

} // namespace murala
