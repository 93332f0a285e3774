// The end of the user's session, or of this program at the system's wish.
#pragma once

#include <functional>
#include <memory>

namespace murala
{

class TSessionEnd
{
public:
    virtual ~TSessionEnd() = default; // stops listening

    // `onEnd` runs once, on this thread and out of its message loop (a dialog's, too), when the
    // session ends (WM_ENDSESSION; the session manager's "die") or the system asks the program to
    // go (SIGTERM, SIGHUP, SIGINT). It saves what is to be saved and leaves the main loop; on
    // Windows the system ends the process soon after it returns. `mainWindow` is the system's
    // handle of the main window; only Windows needs it.
    virtual void Listen(void* mainWindow, std::function<void()> onEnd) = 0;
};

std::unique_ptr<TSessionEnd> NewSessionEnd();

} // namespace murala
