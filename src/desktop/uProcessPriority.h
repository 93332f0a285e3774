#pragma once

namespace murala
{

// High, as far as the system lets the user; failure is ignored.
void RaiseProcessPriority();

} // namespace murala
