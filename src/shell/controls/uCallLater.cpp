#include "uCallLater.h"

#include <utility>

#include <wx/app.h>

namespace murala
{

void CallLater(wxEvtHandler& handler, std::function<void()> work)
{
    handler.CallAfter([work = std::move(work)] {
        // The toolkit catches what events throw, but not this.
        try {
            work();
        } catch (...) {
            wxTheApp->OnExceptionInMainLoop();
        }
    });
}

} // namespace murala
