// The outputs of a Wayland compositor, in their own pixels: what an X server below it says is
// scaled.
#pragma once

#include "uGeometry.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace murala
{

class TWaylandOutputs
{
public:
    virtual ~TWaylandOutputs() = default;
    // The present size, as it is turned, of the output at the origin (else of any); nothing when
    // the compositor is gone.
    virtual std::optional<TSize> PrimarySize() = 0;
    // Where each output lies, in its own pixels.
    virtual std::vector<TRect> Places() = 0;
    // `onChange` is told out of the main loop, a second after something of that has changed.
    virtual void Listen(std::function<void()> onChange) = 0;
};

// Null where no compositor runs.
std::unique_ptr<TWaylandOutputs> ConnectToWayland();

} // namespace murala
