// The memory of the process.
#pragma once

namespace murala
{

// Gives back to the system what was freed and is kept for later: nobody looks at the program.
void GiveBackFreeMemory();

// For threads started from now on: what they let go can be given back, too.
void ShareMemoryOfThreads();

} // namespace murala
