// The outputs of a Wayland compositor, in their own pixels: what an X server below it says is
// scaled.
#pragma once

#include "uGeometry.h"

#include <memory>
#include <optional>

namespace murala
{

class TWaylandOutputs
{
public:
    virtual ~TWaylandOutputs() = default;
    // The present size, as it is turned, of the output at the origin (else of any); nothing when
    // the compositor is gone.
    virtual std::optional<TSize> PrimarySize() = 0;
};

// Null where no compositor runs.
std::unique_ptr<TWaylandOutputs> ConnectToWayland();

} // namespace murala
