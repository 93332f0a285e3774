// The shell's own area is always there.
#include "uToolkitTray.h"

namespace murala
{

std::unique_ptr<TTrayArea> NewToolkitTrayArea()
{
    return nullptr;
}

} // namespace murala
