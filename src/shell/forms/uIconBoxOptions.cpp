#include "uIconBoxOptions.h"

#include "uDialog.h"
#include "uDisplayMode.h"
#include "uIconBoxExample.h"
#include "uSwatch.h"
#include "uWindowSystem.h"
#include "uWxBitmap.h"

#include <cmath>

#include <wx/colordlg.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

namespace murala
{

namespace
{

constexpr int MaximumTint = 100; // percent of MaximumGamma
constexpr int MaximumGamma = 255;
constexpr int TintTicks = 10;

} // namespace

TfIconBoxOptions::TfIconBoxOptions(wxWindow* parent, const TIconBoxSettings& settings)
    : wxDialog(parent, wxID_ANY, "Icon Box Options", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, "TfIconBoxOptions"),
      m_borderColor(settings.BorderColor)
{
    BuildControls();
    FinishDialog(*this, BuildLayout(), *rgType);
    const long double tint = static_cast<long double>(settings.Gamma) / MaximumGamma * MaximumTint;
    tbTint->SetValue(static_cast<int>(RoundHalfEven(tint)));
    cbBorder->SetValue(settings.Border);
    rgType->SetSelection(settings.OnlyIcons ? 1 : 0);
    pBorderColor->SetBackgroundColour(ToWxColour(m_borderColor));
    UpdateTint();
    UpdateControls();
    CentreOnScreen();
    rgType->Bind(wxEVT_RADIOBOX, [this](wxCommandEvent&) { UpdateControls(); });
    tbTint->Bind(wxEVT_SLIDER, [this](wxCommandEvent&) { UpdateTint(); });
    cbBorder->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { UpdateControls(); });
    bSelectColor->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { aSelectColorExecute(); });
}

void TfIconBoxOptions::BuildControls()
{
    const wxString types[] = {"Box around all icons", "Just tint behind each icon"};
    rgType = new wxRadioBox(this, wxID_ANY, "Icon Box &Type", wxDefaultPosition, wxDefaultSize, 2,
                            types, 1, wxRA_SPECIFY_COLS, wxDefaultValidator, "rgType");
    cbBorder = new wxCheckBox(this, wxID_ANY, "&Border", wxDefaultPosition, wxDefaultSize, 0,
                              wxDefaultValidator, "cbBorder");
    const auto newExample = [this](bool onlyIcons, const char* name) {
        return new wxStaticBitmap(this, wxID_ANY, wxBitmap(ToWxImage(IconBoxExample(onlyIcons))),
                                  wxDefaultPosition, wxDefaultSize, 0, name);
    };
    iBoxAroundAllIcons = newExample(false, "iBoxAroundAllIcons");
    iJustTintBehindEachIcon = newExample(true, "iJustTintBehindEachIcon");
}

wxSizer* TfIconBoxOptions::BuildTintRow()
{
    // The label is made as wide as its widest text.
    lTint = new wxStaticText(this, wxID_ANY, "Tint (-100%)", wxDefaultPosition, wxDefaultSize,
                             wxST_NO_AUTORESIZE, "lTint");
    tbTint =
        new wxSlider(this, wxID_ANY, 0, -MaximumTint, MaximumTint, wxDefaultPosition, wxDefaultSize,
                     wxSL_HORIZONTAL | wxSL_AUTOTICKS, wxDefaultValidator, "tbTint");
    tbTint->SetTickFreq(TintTicks);
    tbTint->SetPageSize(TintTicks);
    SetAccessibleName(*tbTint, "Tint");
    pTint = NewSwatch(this, wxSize(32, 24), "pTint");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(tbTint, wxSizerFlags(1).CenterVertical());
    row->Add(pTint, wxSizerFlags().CenterVertical().Border(wxLEFT));
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(lTint);
    rows->Add(row, wxSizerFlags().Expand());
    return rows;
}

wxSizer* TfIconBoxOptions::BuildBorderGroup()
{
    cbBorder->MoveAfterInTabOrder(pTint);
    auto* group = new wxStaticBoxSizer(wxHORIZONTAL, this, "Border Color");
    bSelectColor = new wxButton(group->GetStaticBox(), wxID_ANY, "Select &Color", wxDefaultPosition,
                                wxDefaultSize, 0, wxDefaultValidator, "bSelectColor");
    pBorderColor = NewSwatch(group->GetStaticBox(), wxSize(32, 24), "pBorderColor");
    group->Add(bSelectColor, wxSizerFlags().CenterVertical().Border());
    group->Add(pBorderColor, wxSizerFlags().CenterVertical().Border());
    return group;
}

wxSizer* TfIconBoxOptions::BuildLayout()
{
    auto* left = new wxBoxSizer(wxVERTICAL);
    left->Add(rgType, wxSizerFlags().Expand());
    left->Add(BuildTintRow(), wxSizerFlags().Expand().DoubleBorder(wxTOP));
    left->Add(cbBorder, wxSizerFlags().DoubleBorder(wxTOP));
    left->Add(BuildBorderGroup(), wxSizerFlags().Expand().Border(wxTOP));
    // Both panels share one place.
    auto* examples = new wxBoxSizer(wxVERTICAL);
    examples->AddStretchSpacer();
    examples->Add(iBoxAroundAllIcons);
    examples->Add(iJustTintBehindEachIcon);
    iJustTintBehindEachIcon->Hide();
    auto* columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(left, wxSizerFlags(1).Expand());
    columns->Add(examples, wxSizerFlags().Expand().TripleBorder(wxLEFT));
    auto* banner = new wxStaticText(
        this, wxID_ANY,
        "The preview (below right) shows an example of the two different Icon Box Types.");
    banner->Wrap(columns->CalcMin().x);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(banner, wxSizerFlags().Expand().TripleBorder(wxBOTTOM));
    content->Add(columns, wxSizerFlags(1).Expand());
    return content;
}

TIconBoxSettings TfIconBoxOptions::Settings() const
{
    const long double gamma =
        static_cast<long double>(tbTint->GetValue()) / MaximumTint * MaximumGamma;
    return {static_cast<int>(RoundHalfEven(gamma)), cbBorder->GetValue(),
            rgType->GetSelection() == 1, m_borderColor};
}

void TfIconBoxOptions::UpdateTint()
{
    const int tint = tbTint->GetValue();
    lTint->SetLabel(wxString::Format("Tint (%d%%)", tint));
    const long double share = static_cast<long double>(tint + MaximumTint) / (2 * MaximumTint);
    const auto grey = static_cast<unsigned char>(RoundHalfEven(share * 255));
    pTint->SetBackgroundColour(wxColour(grey, grey, grey));
    pTint->Refresh();
}

void TfIconBoxOptions::UpdateControls()
{
    const bool onlyIcons = rgType->GetSelection() == 1;
    iBoxAroundAllIcons->Show(!onlyIcons);
    iJustTintBehindEachIcon->Show(onlyIcons);
    Layout();
    cbBorder->Enable(!onlyIcons);
    bSelectColor->Enable(!onlyIcons && cbBorder->GetValue());
}

void TfIconBoxOptions::aSelectColorExecute()
{
    wxColourData preset;
    preset.SetChooseFull(true);
    preset.SetColour(ToWxColour(m_borderColor));
    wxColourDialog cdColor(this, &preset);
    if (cdColor.ShowModal() != wxID_OK)
        return;
    m_borderColor = FromWxColour(cdColor.GetColourData().GetColour());
    pBorderColor->SetBackgroundColour(ToWxColour(m_borderColor));
    pBorderColor->Refresh();
}

} // namespace murala
