// What the parts of the program share.
#pragma once

#include "uScopes.h"
#include "uSelection.h"
#include "uServices.h"
#include "uSettings.h"
#include "uStatusLine.h"
#include "uWallpaper.h"

#include <exception>
#include <string>
#include <string_view>

namespace murala
{

// Where a failure is told.
enum class TReport {
    MessageBox, // the user asked for the work and waits
    StatusLine, // the program worked by itself, and nobody may be there
};

struct TCore {
    TServices Services;
    TMainView& View;
    TListeners Listeners;
    TMuWallpaperList List;
    TSelection Selection{List, Listeners};
    TMuSettings Settings;
    TPauses Pauses{Listeners};
    // Set at the end of the session, when nobody reads messages and the system does not wait for
    // answers: Tell writes to stderr then.
    bool IsSilent = false;
    // While it is set, nothing is saved, and changed settings are not applied to the desktop.
    bool Updating = true;
    TStatusLine Status{View};

    TCore(TServices services, TMainView& view);
    TCore(const TCore&) = delete;
    TCore& operator=(const TCore&) = delete;

    // The path of a file in the program folder.
    std::string FilePath(std::string_view name) const;
    // Shows a message box; see IsSilent.
    void Tell(const std::string& text);
    void Report(TReport report, const std::string& text);
    void Report(TReport report, const std::exception& error);
};

} // namespace murala
