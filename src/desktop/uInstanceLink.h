// One running copy a user: how a second start finds the first and wakes it.
#pragma once

#include <functional>
#include <memory>

namespace murala
{

inline constexpr const char* StartLockName = "Murala.Lock";
inline constexpr const char* MainWindowClass = "TfMain";
inline constexpr const char* MainWindowCaption = "Murala";
inline constexpr unsigned WakeMessage = 0x0401; // WM_USER + 1

class TInstanceLink
{
public:
    virtual ~TInstanceLink() = default; // stops listening and unlocks

    // Whether a copy has its main window (class TfMain, caption "Murala").
    virtual bool IsRunning() = 0;
    // Posts WM_USER + 1 to it. False when there is none. It does not wait for a copy that hangs or
    // that may not be sent messages: that copy finds its files when it looks for them the next
    // time.
    virtual bool PostWake() = 0;

    // The start lock. Waits as long as another start holds it; the lock of a start that was killed
    // is free. When there can be no lock at all, the start goes on as if it had it.
    virtual void Lock() = 0;
    // Does nothing when the lock is not held.
    virtual void Unlock() = 0;

    // From now on this copy is the one that others find; to be called before Unlock. `onWake` runs
    // on this thread, out of its message loop, once for each WM_USER + 1. `mainWindow` is the
    // system's handle of a main window that has the class and caption above; without one (null),
    // the link makes a hidden window of that class and caption on Windows. Linux needs no window.
    virtual void Listen(void* mainWindow, std::function<void()> onWake) = 0;
};

std::unique_ptr<TInstanceLink> NewInstanceLink();

} // namespace murala
