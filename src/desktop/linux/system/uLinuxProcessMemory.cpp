#include "uProcessMemory.h"

#include <malloc.h>

namespace murala
{

void GiveBackFreeMemory()
{
    malloc_trim(0);
}

// The C library gives each thread a heap of its own otherwise, and never gives back the end of one.
// It looks at the limit once, when a second thread needs memory.
void ShareMemoryOfThreads()
{
    mallopt(M_ARENA_MAX, 1);
}

} // namespace murala
