// The stars of every sky.
#pragma once

#include "uScene.h"

namespace murala
{

TLight StarsAt(double x, double y);

} // namespace murala
