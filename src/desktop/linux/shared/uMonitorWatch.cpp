#include "uMonitorWatch.h"

#include <X11/extensions/Xrandr.h>
#include <glib-unix.h>

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
    m_source = g_unix_fd_add(
        ConnectionNumber(m_display.get()), G_IO_IN,
        [](gint descriptor, GIOCondition condition, gpointer self) {
            return OnData(descriptor, condition, self);
        },
        this);
}

TMonitorWatch::~TMonitorWatch()
{
    if (m_source != 0)
        g_source_remove(m_source);
}

int TMonitorWatch::OnData(int /*descriptor*/, int /*condition*/, void* data)
{
    auto* self = static_cast<TMonitorWatch*>(data);
    for (XEvent event; XPending(self->m_display.get()) > 0;)
        XNextEvent(self->m_display.get(), &event);
    self->m_settling.Begin();
    return G_SOURCE_CONTINUE;
}

} // namespace murala
