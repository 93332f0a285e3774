// Tells when the X server's monitors change.
#pragma once

#include "uSettling.h"
#include "uX11.h"

#include <functional>

namespace murala
{

class TMonitorWatch
{
public:
    // `onChange` runs out of the main loop, once the monitors have settled.
    explicit TMonitorWatch(std::function<void()> onChange);
    TMonitorWatch(const TMonitorWatch&) = delete;
    TMonitorWatch& operator=(const TMonitorWatch&) = delete;

private:
    bool TakeEvents();

    TDisplay m_display; // its own, whose events nobody else reads
    TSettling m_settling;
    TSource m_source;
};

} // namespace murala
