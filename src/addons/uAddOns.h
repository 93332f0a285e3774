// What is drawn onto a composed and tinted picture before it is saved or shown.
#pragma once

#include "uClock.h"
#include "uCompose.h"
#include "uDateFormat.h"
#include "uIconView.h"
#include "uSettings.h"
#include "uTextDrawing.h"

#include <string>

namespace murala
{

// What the add-ons draw with; all must live as long as what is made from it.
struct TAddOnServices {
    std::string ProgramFolder;
    TTextDrawing& Text;
    TDateNames DateNames;
    TClock& Clock;
    TIconView& Icons;
};

// The calendar, then the icon box, each when the settings want it. The settings are taken as they
// are now; the calendar's file and the icons are read each time that it draws. The calendar shows
// the month of that moment.
TBeforeSave DesktopAddOns(const TAddOnServices& services, const TMuSettings& settings);

// The calendar alone: icons lie on the desktop, not on a preview.
TBeforeSave PreviewAddOns(const TAddOnServices& services, const TMuSettings& settings);

} // namespace murala
