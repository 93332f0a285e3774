// The monitors of the user's session.
#pragma once

#include "uBitmap.h"
#include "uWaylandOutputs.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace murala
{

class TMonitorWatch;

struct TMonitor {
    std::string Name; // of its connector
    TRect Place;
    bool Primary = false;
};

struct TScreens {
    std::vector<TMonitor> Monitors; // empty without an X server
    int Workspaces = 1;
    int BitsPerPixel = 32;
    TSize Whole; // what all monitors lie in
};

TScreens ReadScreens();

// The picture on each monitor, scaled so that it covers it, and cropped; `color` between them.
// Takes the rectangle around all monitors.
TBitmap PictureOnMonitors(const TBitmap& picture, const TScreens& screens, TColor color);

// Watches the monitors, over connections that stay open.
class TScreenWatch
{
public:
    TScreenWatch();
    ~TScreenWatch();

    // The primary monitor's size in its own pixels; without a display that of the first connected
    // screen, and where not even that is known a usual one.
    TSize PrimarySize();
    int BitsPerPixel();
    // See TDesktop.
    void Listen(std::function<void()> onChange);

private:
    void Connect();
    std::vector<TRect> Places();
    void Settled();

    std::unique_ptr<TWaylandOutputs> m_wayland;
    std::shared_ptr<void> m_display;        // keeps the connection open
    std::unique_ptr<TMonitorWatch> m_watch; // without a compositor
    std::vector<TRect> m_places;            // as they were told last
    std::function<void()> m_onChange;
};

} // namespace murala
