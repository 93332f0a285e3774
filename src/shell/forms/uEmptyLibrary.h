// What stands in the place of the wallpapers while there are none: what Murala is for, and how
// pictures come into it.
#pragma once

#include "uActionBinder.h"

#include <vector>

#include <wx/scrolwin.h>

namespace murala
{

class TEmptyLibrary : public wxScrolledWindow
{
public:
    TEmptyLibrary(wxWindow* parent, TActionBinder& binder, bool hasSamples);

    // Gives the first button the focus.
    void TakeFocus() { bAddPictures->SetFocus(); }

private:
    void AddText(wxSizer& rows, const wxString& text);
    void WrapTexts();

    struct TText {
        wxStaticText* Control;
        wxString Text; // without line ends
    };
    std::vector<TText> m_texts;
    wxButton* bAddPictures = nullptr;
};

} // namespace murala
