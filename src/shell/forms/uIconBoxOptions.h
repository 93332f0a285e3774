// The dialog "Icon Box Options".
#pragma once

#include "uSettings.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/panel.h>
#include <wx/radiobox.h>
#include <wx/slider.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

namespace murala
{

class TfIconBoxOptions : public wxDialog
{
public:
    TfIconBoxOptions(wxWindow* parent, const TIconBoxSettings& settings);

    TIconBoxSettings Settings() const;

private:
    void BuildControls();
    wxSizer* BuildTintRow();
    wxSizer* BuildBorderGroup();
    wxSizer* BuildLayout();
    void UpdateTint();
    void UpdateControls();
    void aSelectColorExecute();

    TColor m_borderColor;
    wxRadioBox* rgType = nullptr;
    wxStaticText* lTint = nullptr;
    wxSlider* tbTint = nullptr;
    wxPanel* pTint = nullptr;
    wxCheckBox* cbBorder = nullptr;
    wxButton* bSelectColor = nullptr;
    wxPanel* pBorderColor = nullptr;
    wxStaticBitmap* iBoxAroundAllIcons = nullptr;
    wxStaticBitmap* iJustTintBehindEachIcon = nullptr;
};

} // namespace murala
