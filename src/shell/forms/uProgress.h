// The small window that shows that long work goes on.
#pragma once

#include <wx/frame.h>

namespace murala
{

class TfProgress : public wxFrame
{
public:
    // Shows itself at once.
    TfProgress(wxWindow* parent, const wxString& text);
};

} // namespace murala
