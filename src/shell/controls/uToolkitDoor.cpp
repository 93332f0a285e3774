#include "uToolkitDoor.h"

#include "uCallLater.h"

#include <wx/app.h>

namespace murala
{

// A pending event of the application wakes the event loop, and the idle turn after it deletes
// windows that wait for their end.
void TToolkitDoor::Post(std::function<void()> work)
{
    if (wxTheApp != nullptr)
        CallLater(*wxTheApp, std::move(work));
}

} // namespace murala
