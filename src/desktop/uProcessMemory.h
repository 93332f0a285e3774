// The memory of the process.
#pragma once

namespace murala
{

// Gives back to the system what was freed and is kept for later: nobody looks at the program.
void GiveBackFreeMemory();

// Before the first thread is started: what threads let go can be given back, too.
void ShareMemoryOfThreads();

} // namespace murala
