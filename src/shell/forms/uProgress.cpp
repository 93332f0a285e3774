#include "uProgress.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace murala
{

TfProgress::TfProgress(wxWindow* parent, const wxString& text)
    : wxFrame(parent, wxID_ANY, "Please Wait", wxDefaultPosition, wxDefaultSize,
              wxCAPTION | wxFRAME_NO_TASKBAR, "TfProgress")
{
    auto* panel = new wxPanel(this);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new wxStaticText(panel, wxID_ANY, text), wxSizerFlags().Expand().TripleBorder());
    rows->SetMinSize(FromDIP(wxSize(300, -1)));
    panel->SetSizerAndFit(rows);
    Fit();
    CentreOnScreen();
    Show();
    Update();
}

} // namespace murala
