// The dialog in which a gradient is made.
#pragma once

#include "uColorBars.h"
#include "uGradientPanel.h"

#include <wx/dialog.h>
#include <wx/radiobox.h>

namespace murala
{

class TfGradientEditor : public wxDialog
{
public:
    explicit TfGradientEditor(wxWindow* parent);

    TGradientShade Shade() const { return {pDrag->StartColor(), pDrag->EndColor()}; }
    TGradientDirection Direction() const { return pDrag->Direction(); }

private:
    wxSizer* NewColorGroup(const wxString& caption, TColorBars*& bars,
                           const TColorBars::TNames& barNames, const TColorBars::TNames& editNames);
    void BindEvents();

    TColorBars* m_start = nullptr;
    TColorBars* m_end = nullptr;
    wxRadioBox* rgDirection = nullptr;
    TGradientPanel* pDrag = nullptr;
};

} // namespace murala
