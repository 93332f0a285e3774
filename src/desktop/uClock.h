// The time. Nothing else in the program asks the system for it.
#pragma once

#include "uDateTime.h"

#include <memory>

namespace murala
{

class TClock
{
public:
    virtual ~TClock() = default;
    // Local date and time.
    virtual TDateTime Now() = 0;
};

std::unique_ptr<TClock> NewClock();

} // namespace murala
