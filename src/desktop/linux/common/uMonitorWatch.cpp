#include "uMonitorWatch.h"

#include <X11/extensions/Xrandr.h>

namespace murala
{

TMonitorWatch::TMonitorWatch(std::function<void()> onChange)
    : m_display(OpenDisplay()), m_settling(std::move(onChange))
{
    int ignored = 0;
    if (!m_display || XRRQueryExtension(m_display.get(), &ignored, &ignored) == False)
        return;
    XRRSelectInput(m_display.get(), DefaultRootWindow(m_display.get()),
                   RRScreenChangeNotifyMask | RRCrtcChangeNotifyMask | RROutputChangeNotifyMask);
    XFlush(m_display.get());
    m_source = RunOnData(ConnectionNumber(m_display.get()), [this] { return TakeEvents(); });
}

bool TMonitorWatch::TakeEvents()
{
    for (XEvent event; XPending(m_display.get()) > 0;)
        XNextEvent(m_display.get(), &event);
    m_settling.Begin();
    return true;
}

} // namespace murala
