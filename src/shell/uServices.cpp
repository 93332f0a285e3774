#include "uServices.h"

#include "uProgramFolder.h"

namespace murala
{

THomeServices::THomeServices(TDoor& door)
    : m_door(door), m_folder(ProgramFolder()), m_desktop(NewDesktop(m_folder)),
      m_iconView(NewIconView()), m_taskBar(NewTaskBar()), m_autostart(NewAutostart()),
      m_fileMenu(NewFileMenu()), m_fileQueue(NewFileQueue()), m_launcher(NewLauncher()),
      m_siblings(NewSiblings()), m_screenSaver(NewScreenSaver()), m_sessionEnd(NewSessionEnd()),
      m_messageLoop(NewMessageLoop()), m_text(NewTextDrawing()), m_clock(NewClock()),
      m_locale(NewLocale()), m_trayArea(NewTrayArea())
{
}

TServices THomeServices::Services()
{
    return {m_door,        *m_desktop,          *m_iconView, *m_taskBar,   *m_autostart,
            *m_fileMenu,   *m_fileQueue,        *m_launcher, *m_siblings,  *m_screenSaver,
            *m_sessionEnd, *m_messageLoop,      *m_text,     *m_clock,     *m_locale,
            *m_trayArea,   LanguageDateNames(), m_folder,    ProgramFile()};
}

} // namespace murala
