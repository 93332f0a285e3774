// Runs work later, when the events of this moment are handled.
#pragma once

#include <functional>

#include <wx/event.h>

namespace murala
{

// The work is dropped when the handler goes first. What it throws reaches
// TMuralaApp::OnExceptionInMainLoop, as everything does that an event's handler throws.
void CallLater(wxEvtHandler& handler, std::function<void()> work);

} // namespace murala
