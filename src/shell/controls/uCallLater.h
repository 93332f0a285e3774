// Work that is done once the present messages are answered.
#pragma once

#include <functional>

#include <wx/event.h>

namespace murala
{

// Never after the handler has gone. What the work throws ends where everything does that a handler
// of an event throws: in the application's net.
void CallLater(wxEvtHandler& handler, std::function<void()> work);

} // namespace murala
