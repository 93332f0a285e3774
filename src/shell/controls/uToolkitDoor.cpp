#include "uToolkitDoor.h"

#include "uCallLater.h"

#include <wx/app.h>

namespace murala
{

// The application's pending events wake the loop, and with them go the windows that wait for it.
void TToolkitDoor::Post(std::function<void()> work)
{
    if (wxTheApp != nullptr)
        CallLater(*wxTheApp, std::move(work));
}

} // namespace murala
