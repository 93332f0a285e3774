#include "uX11.h"

#include <cstdlib>

namespace murala
{

namespace
{

bool requestFailed = false;

int RememberFailure(Display* /*display*/, XErrorEvent* /*error*/)
{
    requestFailed = true;
    return 0;
}

} // namespace

TSharedDisplay SharedDisplay()
{
    static std::weak_ptr<Display> shared;
    TSharedDisplay display = shared.lock();
    if (!display)
        shared = display = OpenDisplay();
    return display;
}

bool IsBelowWayland()
{
    const char* compositor = std::getenv("WAYLAND_DISPLAY");
    return compositor != nullptr && *compositor != '\0';
}

TXErrorGuard::TXErrorGuard(Display* display) : m_display(display)
{
    XSync(display, False);
    requestFailed = false;
    m_before = XSetErrorHandler(RememberFailure);
}

TXErrorGuard::~TXErrorGuard()
{
    XSync(m_display, False);
    XSetErrorHandler(m_before);
}

bool TXErrorGuard::HasFailed()
{
    XSync(m_display, False);
    return requestFailed;
}

std::vector<unsigned long> ReadValues32(Display* display, Window window, const char* name,
                                        Atom type, long most)
{
    const Atom property = XInternAtom(display, name, True);
    if (property == None)
        return {};
    Atom actualType = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, property, 0, most, False, type, &actualType, &format,
                       &count, &rest, &data);
    const TXOwned<unsigned char> owner(data);
    if (actualType != type || format != 32)
        return {};
    // Xlib hands out 32-bit values as longs.
    const auto* first = reinterpret_cast<const unsigned long*>(data);
    return {first, first + count};
}

unsigned long ReadProperty32(Display* display, Window window, const char* name, Atom type)
{
    const auto values = ReadValues32(display, window, name, type, 1);
    return values.empty() ? 0 : values.front();
}

} // namespace murala
