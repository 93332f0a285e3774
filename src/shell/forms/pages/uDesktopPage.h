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
    wxSizer* NewContent() override;
    void ShowItem(const TMuWallpaper* item) override;
    wxButton* NewColorButton(TColor color, const wxString& name, const wxString& caption,
                             const wxString& hint);

    TActionBinder& m_binder;
    TActionList& m_actions;
    wxPanel* m_desktopColor = nullptr;
    wxButton* m_black = nullptr;
    wxButton* m_white = nullptr;
    wxCheckBox* m_transparentIcons = nullptr;
};

} // namespace murala
