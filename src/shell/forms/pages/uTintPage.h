#pragma once

#include "uChannelBars.h"
#include "uSettingsPage.h"

#include <wx/choice.h>
#include <wx/statbox.h>

namespace murala
{

// tsGamma: the tint's style and its two ends.
class TTintPage : public TSettingsPage
{
public:
    TTintPage(wxWindow* parent, TMurala& murala);
    wxSize LikelySize() const override;

private:
    wxSizer* NewContent() override;
    void ShowItem(const TMuWallpaper* item) override;
    wxSizer* NewEnd(TTintEnd end, const wxString& caption, const TChannelBars::TNames& names);

    struct TEnd {
        wxStaticBox* Box = nullptr;
        TChannelBars* Bars = nullptr;
    };
    TEnd& End(TTintEnd end) { return end == TTintEnd::Start ? m_start : m_end; }

    wxChoice* m_style = nullptr;
    TEnd m_start, m_end;
};

} // namespace murala
