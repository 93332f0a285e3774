#include "uProcessMemory.h"

#include <windows.h>

namespace murala
{

void GiveBackFreeMemory()
{
    HeapCompact(GetProcessHeap(), 0);
    constexpr auto asLittleAsPossible = static_cast<SIZE_T>(-1);
    SetProcessWorkingSetSize(GetCurrentProcess(), asLittleAsPossible, asLittleAsPossible);
}

// Threads share the memory of their process here anyway.
void ShareMemoryOfThreads()
{
}

} // namespace murala
