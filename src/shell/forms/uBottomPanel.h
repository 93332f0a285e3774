// The bottom of the main window: status line, last change, progress bar and the most used commands.
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

    // The hint shows the whole text when it is too long.
    void ShowStatus(const std::string& text);
    void ShowLastChange(const std::string& text);
    // Hidden when no long work goes on.
    wxGauge& ProgressBar() { return *pbMain; }

private:
    wxGauge* pbMain;
    wxStaticText* pStatusText;
    wxStaticText* lLastChange;
};

} // namespace murala
