#include "uAddOnsPage.h"

#include "uCallLater.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr int TextWidth = 270; // DIPs, where the page has no size yet

} // namespace

TAddOnsPage::TAddOnsPage(wxWindow* parent, TMurala& murala, TActionBinder& binder,
                         TActionList& actions)
    : TSettingsPage(parent, murala, "tsAddOns"), m_binder(binder), m_actions(actions)
{
}

wxSizer* TAddOnsPage::NewContent()
{
    wxArrayString captions;
    for (const TAddOn& addOn : AddOnList())
        captions.Add(ToWx(addOn.Caption));
    m_addOns = new wxCheckListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(180, 80)),
                                  captions, 0, wxDefaultValidator, "clbAddOns");
    m_addOns->SetSelection(0);
    m_addOns->Bind(wxEVT_CHECKLISTBOX, [this](wxCommandEvent& event) {
        m_actions.Request(AddOnList()[static_cast<std::size_t>(event.GetInt())].Switch);
        CallLater(*this, [this] { ShowMarks(); });
    });
    m_addOns->Bind(wxEVT_LISTBOX_DCLICK,
                   [this](wxCommandEvent&) { m_actions.Request(aConfigureAddOn); });
    m_iconBoxProblem = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0,
                                        "lIconBoxProblem");
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(m_addOns, wxSizerFlags(1).Expand());
    content->Add(m_iconBoxProblem, wxSizerFlags().Expand().Border(wxTOP));
    content->Add(m_binder.NewButton(this, aConfigureAddOn, "bAddOnOptions"),
                 wxSizerFlags().DoubleBorder(wxTOP));
    ShowMarks();
    return content;
}

TActionId TAddOnsPage::OptionsAction() const
{
    const int row = IsBuilt() ? m_addOns->GetSelection() : 0;
    return row == wxNOT_FOUND ? ActionCount : AddOnList()[static_cast<std::size_t>(row)].Options;
}

void TAddOnsPage::ShowMarks()
{
    for (unsigned row = 0; row < AddOnList().size(); ++row)
        m_addOns->Check(row, m_actions[AddOnList()[row].Switch].Checked());
}

void TAddOnsPage::Arrive()
{
    if (m_addOns->GetSelection() == wxNOT_FOUND)
        m_addOns->SetSelection(0);
    // The desktop's icons may have come up meanwhile.
    const wxString problem = ToWx(m_murala.AddOns.Problems());
    if (problem == m_shownProblem)
        return;
    m_shownProblem = problem;
    m_iconBoxProblem->SetLabel(problem);
    m_iconBoxProblem->Wrap(std::max(FromDIP(TextWidth), m_addOns->GetSize().x));
    Layout();
}

} // namespace murala
