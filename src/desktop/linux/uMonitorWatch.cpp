#include "uMonitorWatch.h"

#include <X11/extensions/Xrandr.h>
#include <glib-unix.h>

namespace murala
{

namespace
{
constexpr guint SettlingMs = 500; // a change comes as many events
}

TMonitorWatch::TMonitorWatch(std::function<void()> onChange)
    : m_display(OpenDisplay()), m_onChange(std::move(onChange))
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
    for (const unsigned source : {m_source, m_settling})
        if (source != 0)
            g_source_remove(source);
}

int TMonitorWatch::OnData(int /*descriptor*/, int /*condition*/, void* data)
{
    auto* self = static_cast<TMonitorWatch*>(data);
    for (XEvent event; XPending(self->m_display.get()) > 0;)
        XNextEvent(self->m_display.get(), &event);
    if (self->m_settling != 0)
        g_source_remove(self->m_settling);
    self->m_settling = g_timeout_add(SettlingMs, OnSettled, self);
    return G_SOURCE_CONTINUE;
}

int TMonitorWatch::OnSettled(void* data)
{
    auto* self = static_cast<TMonitorWatch*>(data);
    self->m_settling = 0;
    self->m_onChange();
    return G_SOURCE_REMOVE;
}

} // namespace murala
