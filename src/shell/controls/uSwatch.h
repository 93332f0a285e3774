// A small area that shows a colour by its background.
#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

class wxPanel;
class wxWindow;

namespace murala
{

wxPanel* NewSwatch(wxWindow* parent, const wxSize& size, const wxString& name); // size in DIPs

} // namespace murala
