// The door (uDoor.h) into the toolkit's event loop.
#pragma once

#include "uDoor.h"

namespace murala
{

class TToolkitDoor : public TDoor
{
public:
    void Post(std::function<void()> work) override;
};

} // namespace murala
