// A page of pcEffect: shows and changes the settings of the selected wallpapers.
#pragma once

#include "uListeners.h"
#include "uMurala.h"

#include <wx/scrolwin.h>

namespace murala
{

// A page scrolls where the window is too small for it, so that nothing is cut.
class TSettingsPage : public wxScrolledWindow, protected TListener
{
public:
    // Makes the controls, which takes longer than the rest of the window, and shows what is
    // selected from now on. Once; later calls do nothing.
    void Build();
    bool IsBuilt() const { return GetSizer() != nullptr; }
    // What the page will need, about, before it is built: for the one that needs the most.
    virtual wxSize LikelySize() const { return {}; }
    // The page has come to the front.
    virtual void Arrive() {}

protected:
    TSettingsPage(wxWindow* parent, TMurala& murala, const wxString& name);
    virtual wxSizer* NewContent() = 0;
    // Shows the item's values; null: there is none, and everything is disabled.
    virtual void ShowItem(const TMuWallpaper* item) = 0;

    TItems Items() const { return m_murala.Core.Selection.Items(); }

    TMurala& m_murala;

private:
    void SelectionChanged() override { ShowItem(m_murala.Core.Selection.Item()); }
    void ItemsChanged(const TItems& items) override;

    TSubscription m_subscription;
};

} // namespace murala
