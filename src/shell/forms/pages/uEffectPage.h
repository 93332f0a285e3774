#pragma once

#include "uSettingsPage.h"

#include <wx/button.h>
#include <wx/choice.h>

namespace murala
{

// tsEffect: the program that is started on the wallpaper.
class TEffectPage : public TSettingsPage
{
public:
    TEffectPage(wxWindow* parent, TMurala& murala);

private:
    wxSizer* NewContent() override;
    void ShowItem(const TMuWallpaper* item) override;
    int IndexOf(const std::string& effect);

    std::vector<std::string> m_names; // as m_effect shows them
    wxChoice* m_effect = nullptr;
    wxButton* m_settings = nullptr;
};

} // namespace murala
