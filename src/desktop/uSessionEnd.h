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

    // Before Listen. `onQuestion` runs when the system asks whether the session may end, at once
    // and whatever the program is doing: it saves what is to be saved, and the program goes on, as
    // another one may refuse. Only Windows asks.
    virtual void ListenToQuestion(std::function<void()> onQuestion) = 0;

    // `onEnd` runs once, on this thread and out of its message loop (a dialog's, too), when the
    // session ends (WM_ENDSESSION; the session manager's "die") or the system asks the program to
    // go (SIGTERM, SIGHUP, SIGINT). It saves what is to be saved and leaves the main loop; on
    // Windows the system may end the process as soon as it returns. `mainWindow` is the system's
    // handle of the main window; only Windows needs it.
    virtual void Listen(void* mainWindow, std::function<void()> onEnd) = 0;
};

std::unique_ptr<TSessionEnd> NewSessionEnd();

} // namespace murala
