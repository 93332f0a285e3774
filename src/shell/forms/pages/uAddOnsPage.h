#pragma once

#include "uActionBinder.h"
#include "uSettingsPage.h"

#include <wx/checklst.h>
#include <wx/stattext.h>

namespace murala
{

// tsAddOns: which add-ons are drawn onto the wallpaper. It belongs to no item.
class TAddOnsPage : public TSettingsPage
{
public:
    TAddOnsPage(wxWindow* parent, TMurala& murala, TActionBinder& binder, TActionList& actions);

    // The options action of the selected add-on; ActionCount when none is selected.
    TActionId OptionsAction() const;
    void Arrive() override;

private:
    wxSizer* NewContent() override;
    void ShowItem(const TMuWallpaper*) override {}
    void AddOnsChanged() override { ShowMarks(); }
    void ShowMarks();

    TActionBinder& m_binder;
    TActionList& m_actions;
    wxCheckListBox* m_addOns = nullptr;
    wxStaticText* m_iconBoxProblem = nullptr;
    wxString m_shownProblem; // before it was broken into lines
};

} // namespace murala
