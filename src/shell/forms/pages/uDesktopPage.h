#pragma once

#include "uActionBinder.h"
#include "uSettingsPage.h"

namespace murala
{

// tsDesktop: the colour behind the picture, and the icons' text.
class TDesktopPage : public TSettingsPage
{
public:
    TDesktopPage(wxWindow* parent, TMurala& murala, TActionBinder& binder, TActionList& actions);

private:
    void ShowItem(const TMuWallpaper* item) override;
    wxButton* NewColorButton(TColor color, const wxString& name, const wxString& caption,
                             const wxString& hint);

    TActionList& m_actions;
    wxPanel* m_desktopColor;
    wxButton* m_black;
    wxButton* m_white;
    wxCheckBox* m_transparentIcons;
};

} // namespace murala
