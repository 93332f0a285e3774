#include "uProcessMemory.h"

#include <malloc.h>

namespace murala
{

void GiveBackFreeMemory()
{
    malloc_trim(0);
}

// The C library gives each new thread a heap of its own otherwise, and never gives back the end of
// one. Not called before the start is over: there are threads that would hold up the window's.
void ShareMemoryOfThreads()
{
    mallopt(M_ARENA_MAX, 1);
}

} // namespace murala
