#include "uBottomPanel.h"

#include "uWindowSystem.h"
#include "uWxText.h"

#include <wx/sizer.h>

namespace murala
{

TBottomPanel::TBottomPanel(wxWindow* parent, const TActionList& actions, TActionBinder& binder)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "pBottom")
{
    pbMain =
        new wxGauge(this, wxID_ANY, 100, wxDefaultPosition, wxSize(FromDIP(120), GetCharHeight()),
                    wxGA_HORIZONTAL, wxDefaultValidator, "pbMain");
    pbMain->Hide();
    auto* texts = new wxBoxSizer(wxVERTICAL);
    const auto newText = [&](const char* name) {
        auto* text = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                      wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, name);
        texts->Add(text, wxSizerFlags().Expand());
        return text;
    };
    pStatusText = newText("pStatusText");
    lLastChange = newText("lLastChange");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(pbMain, wxSizerFlags().CenterVertical().Border());
    row->Add(texts, wxSizerFlags(1).CenterVertical().Border());
    for (const TActionId action : {aPrevious, aNext, aApply})
        row->Add(binder.NewSpeedButton(this, action, "sb" + ToWx(actions[action].Name.substr(1))),
                 wxSizerFlags().CenterVertical().Border(wxTOP | wxBOTTOM | wxRIGHT));
    SetSizer(row);
}

void TBottomPanel::ShowStatus(const std::string& text)
{
    const wxString label = wxControl::EscapeMnemonics(LeftToRight(ToWx(text)));
    if (label == pStatusText->GetLabel())
        return;
    pStatusText->SetLabel(label);
    pStatusText->SetToolTip(ToWx(text));
}

void TBottomPanel::ShowLastChange(const std::string& text)
{
    if (ToWx(text) != lLastChange->GetLabel())
        lLastChange->SetLabel(ToWx(text));
}

} // namespace murala
