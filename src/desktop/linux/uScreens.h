// The monitors of the user's session.
#pragma once

#include "uGeometry.h"

#include <string>
#include <vector>

namespace murala
{

struct TMonitor {
    std::string Name; // of its connector
    TRect Place;
    bool Primary = false;
};

struct TScreens {
    std::vector<TMonitor> Monitors; // empty without an X server
    int Workspaces = 1;
    int BitsPerPixel = 32;
};

TScreens ReadScreens();

// The primary monitor's size; without an X server that of the first connected screen, and where not
// even that is known a usual one.
TSize PrimaryScreenSize();

} // namespace murala
