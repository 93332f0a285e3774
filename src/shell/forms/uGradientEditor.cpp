#include "uGradientEditor.h"

#include "uDialog.h"
#include "uWindowSystem.h"

#include <wx/sizer.h>
#include <wx/statbox.h>

namespace murala
{

namespace
{

// rgDirection's first item stands for the first direction.
constexpr int FirstDirection = static_cast<int>(TGradientDirection::Vertical);
constexpr int SampleWidth = 200, SampleHeight = 150; // DIPs

} // namespace

TfGradientEditor::TfGradientEditor(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, "Gradient Editor", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "TfGradientEditor")
{
    auto* colors = new wxBoxSizer(wxVERTICAL);
    colors->Add(NewColorGroup("&Start Color", m_start,
                              {"tbStartRed", "tbStartGreen", "tbStartBlue"},
                              {"eStartRed", "eStartGreen", "eStartBlue"}),
                wxSizerFlags().Expand());
    colors->Add(NewColorGroup("&End Color", m_end, {"tbEndRed", "tbEndGreen", "tbEndBlue"},
                              {"eEndRed", "eEndGreen", "eEndBlue"}),
                wxSizerFlags().Expand().DoubleBorder(wxTOP));
    const wxString directions[] = {"&Vertical", "&Horizontal"};
    rgDirection = new wxRadioBox(this, wxID_ANY, "&Direction", wxDefaultPosition, wxDefaultSize,
                                 static_cast<int>(std::size(directions)), directions, 0,
                                 wxRA_SPECIFY_ROWS, wxDefaultValidator, "rgDirection");
    pDrag = new TGradientPanel(this, "pDrag");
    pDrag->SetMinSize(FromDIP(wxSize(SampleWidth, SampleHeight)));
    SetAccessibleName(*pDrag, "Sample");
    auto* right = new wxBoxSizer(wxVERTICAL);
    right->Add(rgDirection, wxSizerFlags().Expand());
    right->Add(pDrag, wxSizerFlags(1).Expand().DoubleBorder(wxTOP));
    auto* content = new wxBoxSizer(wxHORIZONTAL);
    content->Add(colors, wxSizerFlags(1).Expand());
    content->Add(right, wxSizerFlags(1).Expand().DoubleBorder(wxLEFT));
    FinishDialog(*this, content, *m_start);
    SetMinSize(GetSize());
    BindEvents();
}

wxSizer* TfGradientEditor::NewColorGroup(const wxString& caption, TColorBars*& bars,
                                         const TColorBars::TNames& barNames,
                                         const TColorBars::TNames& editNames)
{
    auto* group = new wxStaticBoxSizer(wxVERTICAL, this, caption);
    bars = new TColorBars(group->GetStaticBox(), wxControl::RemoveMnemonics(caption), barNames,
                          editNames);
    group->Add(bars, wxSizerFlags(1).Expand().Border());
    return group;
}

void TfGradientEditor::BindEvents()
{
    m_start->OnChange = [this] { pDrag->SetStartColor(m_start->Color()); };
    m_end->OnChange = [this] { pDrag->SetEndColor(m_end->Color()); };
    pDrag->OnChange = [this] {
        m_start->ShowColor(pDrag->StartColor());
        m_end->ShowColor(pDrag->EndColor());
    };
    rgDirection->Bind(wxEVT_RADIOBOX, [this](wxCommandEvent& event) {
        pDrag->SetDirection(static_cast<TGradientDirection>(event.GetSelection() + FirstDirection));
    });
}

} // namespace murala
