// The small window that shows that long work goes on.
#pragma once

#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/stattext.h>

namespace murala
{

class TfProgress : public wxFrame
{
public:
    // Shows itself at once; the gauge runs from 0 to `range` (0: no gauge).
    TfProgress(wxWindow* parent, const wxString& text, int range = 0);

    void SetText(const wxString& text);
    void SetPosition(int position);

private:
    wxStaticText* m_text;
    wxGauge* m_gauge = nullptr;
};

} // namespace murala
