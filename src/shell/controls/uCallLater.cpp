#include "uCallLater.h"

#include <utility>

#include <wx/app.h>

namespace murala
{

void CallLater(wxEvtHandler& handler, std::function<void()> work)
{
    handler.CallAfter([work = std::move(work)] {
        // The toolkit catches what handlers of events throw, but not what CallAfter runs.
        try {
            work();
        } catch (...) {
            wxTheApp->OnExceptionInMainLoop();
        }
    });
}

} // namespace murala
