#include "uSwatch.h"

#include <wx/panel.h>

namespace murala
{

namespace
{

class TSwatch : public wxPanel
{
public:
    TSwatch(wxWindow* parent, const wxSize& size, const wxString& name)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, size, wxBORDER_SIMPLE, name)
    {
        m_container.DisableSelfFocus(); // a colour only: the keyboard passes it
    }
};

} // namespace

wxPanel* NewSwatch(wxWindow* parent, const wxSize& size, const wxString& name)
{
    return new TSwatch(parent, parent->FromDIP(size), name);
}

} // namespace murala
