#include "uRootKeeper.h"

#include <X11/Xatom.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace murala
{

namespace
{

// While the window manager is new, another picture is taken for its own, not for one of the user's.
constexpr unsigned LookEveryMs = 2000;
constexpr int NewForS = 60;
constexpr int Looks = NewForS * 1000 / static_cast<int>(LookEveryMs);
constexpr int LooksOfStart = 6;
constexpr int MostLosses = 3; // of our picture while it is new

constexpr const char* ManagerProperty = "_NET_SUPPORTING_WM_CHECK";

// Since the system's start; 0 where it is not known.
double SecondsOf(const std::string& process)
{
    constexpr int startField = 22;
    std::ifstream file("/proc/" + process + "/stat");
    std::string field;
    std::getline(file, field, ')'); // the program's name may have blanks; it is the second field
    for (int i = 2; i < startField && file; i++)
        file >> field;
    return file ? std::stod(field) / static_cast<double>(sysconf(_SC_CLK_TCK)) : 0;
}

// A window manager that does not say which process it is counts as new.
bool IsManagerOld(Display* display)
{
    TXErrorGuard guard(display);
    const Window manager =
        ReadProperty32(display, DefaultRootWindow(display), ManagerProperty, XA_WINDOW);
    const unsigned long process =
        manager != None ? ReadProperty32(display, manager, "_NET_WM_PID", XA_CARDINAL) : 0;
    const double begin = process != 0 ? SecondsOf(std::to_string(process)) : 0;
    double now = 0;
    std::ifstream("/proc/uptime") >> now;
    return begin > 0 && now - begin > NewForS;
}

} // namespace

Pixmap PictureOnRoot(Display* display)
{
    return ReadProperty32(display, DefaultRootWindow(display), RootPictureProperty, XA_PIXMAP);
}

TRootKeeper::TRootKeeper(std::function<void()> onLost)
    : m_onLost(std::move(onLost)), m_display(OpenDisplay())
{
    if (!m_display)
        return;
    XSelectInput(m_display.get(), DefaultRootWindow(m_display.get()), PropertyChangeMask);
    XFlush(m_display.get());
    m_events = RunOnData(ConnectionNumber(m_display.get()), [this] {
        TakeEvents();
        return true;
    });
    if (!IsManagerOld(m_display.get()))
        Begin();
}

void TRootKeeper::Keep()
{
    if (!m_display)
        return;
    // We cannot tell our pixmap by its number, because X uses the number of a freed one again. So
    // we take every naming of a root picture from now on for a replacement of ours. The notices of
    // our own naming are taken out of the queue first.
    XSync(m_display.get(), False);
    TakeEvents();
    m_kept = ReadProperty32(m_display.get(), DefaultRootWindow(m_display.get()), OurPictureProperty,
                            XA_PIXMAP);
    m_isLost = PictureOnRoot(m_display.get()) != m_kept;
}

// Events that Xlib has read while it waited for an answer do not make the connection readable any
// more. So this is also called after such a wait.
void TRootKeeper::TakeEvents()
{
    const Atom manager = XInternAtom(m_display.get(), ManagerProperty, False);
    const Atom picture = XInternAtom(m_display.get(), RootPictureProperty, False);
    for (XEvent event; XPending(m_display.get()) > 0;) {
        XNextEvent(m_display.get(), &event);
        if (event.type != PropertyNotify)
            continue;
        if (event.xproperty.atom == manager)
            Begin();
        else if (event.xproperty.atom == picture && !m_looking)
            m_kept = None; // the user has put another one there
        else if (event.xproperty.atom == picture)
            m_isLost = true;
    }
}

void TRootKeeper::Begin()
{
    m_looksLeft = Looks;
    m_lossesLeft = MostLosses;
    m_looking = RunEvery(LookEveryMs, [this] {
        const bool goesOn = Look();
        if (!goesOn)
            m_looking.reset();
        return goesOn;
    });
}

// Shows our picture again: a window manager that paints at the same time may name its picture
// before ours and show it after.
void TRootKeeper::ShowKept()
{
    if (m_looksLeft <= Looks - LooksOfStart)
        return;
    TXErrorGuard guard(m_display.get());
    const Window root = DefaultRootWindow(m_display.get());
    XSetWindowBackgroundPixmap(m_display.get(), root, m_kept);
    XClearWindow(m_display.get(), root);
    m_isLost = guard.HasFailed(); // some managers free ours without naming their own
}

// Whether it is worth looking again.
bool TRootKeeper::Look()
{
    TakeEvents();
    if (m_kept != None && !m_isLost) {
        ShowKept();
    } else if (m_kept != None) {
        m_kept = None; // until it is there again
        --m_lossesLeft;
        m_onLost();
    }
    return --m_looksLeft > 0 && m_lossesLeft > 0;
}

} // namespace murala
