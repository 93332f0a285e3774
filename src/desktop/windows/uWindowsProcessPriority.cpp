#include "uProcessPriority.h"
#include "uWindowsHandles.h"

namespace murala
{

void RaiseProcessPriority()
{
    const THandle process(OpenProcess(PROCESS_SET_INFORMATION, FALSE, GetCurrentProcessId()));
    if (process)
        SetPriorityClass(process.get(), HIGH_PRIORITY_CLASS);
}

} // namespace murala
