// Whether a screen saver hides the desktop.
#pragma once

#include <memory>

namespace murala
{

class TScreenSaver
{
public:
    virtual ~TScreenSaver() = default;
    // "Drempels", an animated desktop, counts as one.
    virtual bool IsRunning() = 0;
};

std::unique_ptr<TScreenSaver> NewScreenSaver();

} // namespace murala
