#include "uSettingsPage.h"

#include "uWindowSystem.h"

#include <algorithm>

#include <wx/sizer.h>

namespace murala
{

TSettingsPage::TSettingsPage(wxWindow* parent, TMurala& murala, const wxString& name)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxTAB_TRAVERSAL | wxVSCROLL | wxHSCROLL, name),
      m_murala(murala)
{
}

void TSettingsPage::Build()
{
    if (IsBuilt())
        return;
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(NewContent(), wxSizerFlags(1).Expand().DoubleBorder());
    SetSizer(frame);
    ConnectMnemonics(*this);
    SetScrollRate(FromDIP(8), FromDIP(8));
    FitInside();
    m_subscription = m_murala.Core.Listeners.Listen(*this);
    SelectionChanged();
}

void TSettingsPage::ItemsChanged(const TItems& items)
{
    const TMuWallpaper* shown = m_murala.Core.Selection.Item();
    if (std::ranges::find(items, shown) != items.end())
        ShowItem(shown);
}

} // namespace murala
