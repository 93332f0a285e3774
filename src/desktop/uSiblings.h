// The sibling programs: Veyra, which switches between desktops, and the effect Rovane.
//
// On Windows they are talked to by the registered window messages named below. On Linux a program
// has, in place of its main window, a stream socket named after the window's class in the folder
// $XDG_RUNTIME_DIR (or "/tmp/murala-" + user number), e.g. "$XDG_RUNTIME_DIR/TfVeyraMain". A
// message is one line with its name, ended by a line feed, on a connection of its own:
//
//   to TfVeyraMain  "Veyra Get Current Desktop"      answered by "Veyra Tell Current Desktop 3"
//   to TfVeyraMain  "Veyra Wallpaper Change"         not answered
//   to TfRovane     "WM_CLOSE"                       not answered; the socket goes with the program
//
// Murala's own socket, TfMain with the message "WM_USER + 1" (not answered), lies beside its data:
// in the user's data folder and, of a portable copy, in the program's folder, too.
//
// A socket that refuses connections is a window that does not exist.
#pragma once

#include "uMessageLoop.h"
#include <cstdint>
#include <memory>

namespace murala
{

// 0: no window.
using TWindowId = std::uintptr_t;

inline constexpr const char* VeyraWindowClass = "TfVeyraMain";
inline constexpr const char* RovaneWindowClass = "TfRovane";
inline constexpr const char* GetDesktopMessage = "Veyra Get Current Desktop";
inline constexpr const char* TellDesktopMessage = "Veyra Tell Current Desktop";
inline constexpr const char* WallpaperChangeMessage = "Veyra Wallpaper Change";
inline constexpr const char* RovaneTargetMessage = "RovaneWM_SET_ROVANE_TARGET";

class TSiblings
{
public:
    virtual ~TSiblings() = default;

    // The number of the current desktop; 0 when Veyra is not running or does not tell.
    virtual int GetVeyraDesktop() = 0;
    virtual void NotifyVeyraWallpaperChange() = 0;

    // 0 when it is not running.
    virtual TWindowId FindRovane() = 0;
    virtual bool IsWindow(TWindowId window) = 0;
    // Posts WM_CLOSE, then nudges all top-level windows, so that hung ones are noticed.
    virtual void PostClose(TWindowId window) = 0;
};

std::unique_ptr<TSiblings> NewSiblings();

// Asks a window to close, again and again for five seconds. Whether it is gone.
bool CloseWindowAndWait(TSiblings& siblings, TMessageLoop& loop, TWindowId window);

} // namespace murala
