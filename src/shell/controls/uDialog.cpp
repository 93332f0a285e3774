#include "uDialog.h"

#include <wx/dialog.h>
#include <wx/sizer.h>

namespace murala
{

void FinishDialog(wxDialog& dialog, wxSizer* content)
{
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(content, wxSizerFlags(1).Expand().TripleBorder());
    auto* buttons = dialog.CreateSeparatedButtonSizer(wxOK | wxCANCEL);
    dialog.FindWindow(wxID_OK)->SetLabel("Ok");
    frame->Add(buttons, wxSizerFlags().Expand().DoubleBorder());
    dialog.SetSizerAndFit(frame);
    dialog.CentreOnParent();
}

void FinishDialog(wxDialog& dialog, wxWindow* content)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(content, wxSizerFlags(1).Expand());
    FinishDialog(dialog, rows);
}

} // namespace murala
