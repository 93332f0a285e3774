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

// What a failure is reported with.
enum class TReport {
    MessageBox, // the user asked for it and waits
    StatusLine, // the program did it by itself, and nobody may be there
};

struct TCore {
    TServices Services;
    TMainView& View;
    TListeners Listeners;
    TMuWallpaperList List;
    TSelection Selection{List, Listeners};
    TMuSettings Settings;
    TPauses Pauses{Listeners};
    // At the end of the session nobody reads a message, and the system does not wait for one: it
    // goes to the standard error output.
    bool IsSilent = false;
    // While it is set nothing is saved and nothing is applied again.
    bool Updating = true;
    TStatusLine Status{View};

    TCore(TServices services, TMainView& view);
    TCore(const TCore&) = delete;
    TCore& operator=(const TCore&) = delete;

    // A file of the program folder.
    std::string FilePath(std::string_view name) const;
    // A message box, unless it is silent.
    void Tell(const std::string& text);
    void Report(TReport report, const std::string& text);
    void Report(TReport report, const std::exception& error);
};

} // namespace murala
