// Where the shell's task bar is.
#pragma once

#include "uGeometry.h"

#include <memory>
#include <stdexcept>

namespace murala
{

class ETaskBarMissing : public std::runtime_error
{
public:
    ETaskBarMissing() : std::runtime_error("The task bar window cannot be located") {}
};

class TTaskBar
{
public:
    virtual ~TTaskBar() = default;
    // On the screen. Throws ETaskBarMissing, also where the desktop does not tell.
    virtual TRect GetTaskBarRect() = 0;
};

std::unique_ptr<TTaskBar> NewTaskBar();

} // namespace murala
