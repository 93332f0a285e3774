// Below everything: what the status line says, the last change, progress and the most used
// commands.
#pragma once

#include "uActionBinder.h"

#include <string>

#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/stattext.h>

namespace murala
{

class TBottomPanel : public wxPanel
{
public:
    TBottomPanel(wxWindow* parent, const TActionList& actions, TActionBinder& binder);

    // A text that is longer than its place is whole in the hint.
    void ShowStatus(const std::string& text);
    void ShowLastChange(const std::string& text);
    // Hidden while nothing lasts.
    wxGauge& ProgressBar() { return *pbMain; }

private:
    wxGauge* pbMain;
    wxStaticText* pStatusText;
    wxStaticText* lLastChange;
};

} // namespace murala
