#include "uProgress.h"

#include <wx/panel.h>
#include <wx/sizer.h>

namespace murala
{

TfProgress::TfProgress(wxWindow* parent, const wxString& text, int range)
    : wxFrame(parent, wxID_ANY, "Please Wait", wxDefaultPosition, wxDefaultSize,
              wxCAPTION | wxFRAME_NO_TASKBAR, "TfProgress")
{
    auto* panel = new wxPanel(this);
    m_text = new wxStaticText(panel, wxID_ANY, text);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(m_text, wxSizerFlags().Expand().TripleBorder());
    if (range > 0) {
        m_gauge = new wxGauge(panel, wxID_ANY, range);
        rows->Add(m_gauge, wxSizerFlags().Expand().TripleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    }
    rows->SetMinSize(FromDIP(wxSize(300, -1)));
    panel->SetSizerAndFit(rows);
    Fit();
    CentreOnScreen();
    Show();
    Update();
}

void TfProgress::SetText(const wxString& text)
{
    m_text->SetLabel(text);
    Update();
}

void TfProgress::SetPosition(int position)
{
    if (m_gauge != nullptr)
        m_gauge->SetValue(position);
    Update();
}

} // namespace murala
