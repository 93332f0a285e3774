#include "uServices.h"

#include "uProgramFolder.h"

namespace murala
{

THomeServices::THomeServices()
    : m_folder(ProgramFolder()), m_desktop(NewDesktop(m_folder)), m_locale(NewLocale()),
      m_clock(NewClock()), m_registry(NewRegistry()), m_shellWindows(NewShellWindows()),
      m_screenSaver(NewScreenSaver()), m_launcher(NewLauncher()), m_siblings(NewSiblings()),
      m_messageLoop(NewMessageLoop())
{
}

TServices THomeServices::Services()
{
    return {*m_desktop,  *m_locale,   *m_clock,       *m_registry, *m_shellWindows, *m_screenSaver,
            *m_launcher, *m_siblings, *m_messageLoop, m_folder,    ProgramFile()};
}

} // namespace murala
