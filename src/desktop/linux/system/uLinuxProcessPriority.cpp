#include "uProcessPriority.h"

#include <sys/resource.h>

namespace murala
{

void RaiseProcessPriority()
{
    // Ordinary users are mostly refused.
    setpriority(PRIO_PROCESS, 0, -10);
}

} // namespace murala
