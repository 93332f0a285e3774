// The notification area that the toolkit reaches, for a desktop without one of its own.
#pragma once

#include "uTrayIcon.h"

#include <memory>

namespace murala
{

// Null where there is no need for it.
std::unique_ptr<TTrayArea> NewToolkitTrayArea();

} // namespace murala
