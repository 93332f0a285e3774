// A connection to the X server, and its quirks.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <memory>
#include <vector>

namespace murala
{

struct TDisplayCloser {
    void operator()(Display* display) const noexcept { XCloseDisplay(display); }
};
using TDisplay = std::unique_ptr<Display, TDisplayCloser>;

// Null when there is no X server.
inline TDisplay OpenDisplay()
{
    return TDisplay(XOpenDisplay(nullptr));
}

// The connection that everybody in this process shares as long as somebody holds it. Null when
// there is no X server.
using TSharedDisplay = std::shared_ptr<Display>;
TSharedDisplay SharedDisplay();

// Whether the X server, if there is one, only serves old programs below a Wayland compositor: its
// root window is never seen, its screen saver never runs, and it may come and go.
bool IsBelowWayland();

struct TXFree {
    void operator()(void* thing) const noexcept { XFree(thing); }
};
template<class T>
using TXOwned = std::unique_ptr<T, TXFree>;

// While it lives, a failed request is only remembered; otherwise it would end the process.
class TXErrorGuard
{
public:
    explicit TXErrorGuard(Display* display);
    TXErrorGuard(const TXErrorGuard&) = delete;
    TXErrorGuard& operator=(const TXErrorGuard&) = delete;
    ~TXErrorGuard();

    // Waits for the answers to all requests.
    bool HasFailed();

private:
    Display* m_display;
    XErrorHandler m_before;
};

// The 32-bit values of a window property, `most` at the most; none when there is none of this kind.
std::vector<unsigned long> ReadValues32(Display* display, Window window, const char* name,
                                        Atom type, long most);
// The 32-bit value of a window property, 0 when there is none of this kind.
unsigned long ReadProperty32(Display* display, Window window, const char* name, Atom type);

} // namespace murala
