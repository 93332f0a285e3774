#include "uProcessMemory.h"

#include <malloc.h>

namespace murala
{

void GiveBackFreeMemory()
{
    malloc_trim(0);
}

} // namespace murala
