#include "uTintPage.h"

#include "uActionBinder.h"
#include "uWindowSystem.h"

namespace murala
{

TTintPage::TTintPage(wxWindow* parent, TMurala& murala) : TSettingsPage(parent, murala, "tsGamma")
{
}

wxSize TTintPage::LikelySize() const
{
    const wxSize bars = TChannelBars::LikelySize(*this);
    const int caption = GetCharHeight(), choice = wxButton::GetDefaultSize().y;
    return wxSize(2 * bars.x, bars.y + caption + choice) + FromDIP(wxSize(65, 50));
}

wxSizer* TTintPage::NewContent()
{
    wxArrayString styles;
    for (const std::string_view style : GammaStyleNames)
        styles.Add(ToWx(style));
    m_style = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, styles, 0,
                           wxDefaultValidator, "cbGammaStyle");
    SetAccessibleName(*m_style, "Tint style");
    m_style->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        m_murala.Editor.SetGammaStyle(Items(), static_cast<TGammaStyle>(event.GetSelection()));
    });
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(m_style, wxSizerFlags().Expand());
    auto* ends = new wxBoxSizer(wxHORIZONTAL);
    ends->Add(NewEnd(TTintEnd::Start, "Start Tint",
                     {"tbGammaStart", "tbGammaRedStart", "tbGammaGreenStart", "tbGammaBlueStart"}),
              wxSizerFlags(1).Expand());
    ends->Add(NewEnd(TTintEnd::End, "End Tint",
                     {"tbGammaEnd", "tbGammaRedEnd", "tbGammaGreenEnd", "tbGammaBlueEnd"}),
              wxSizerFlags(1).Expand().Border(wxLEFT));
    content->Add(ends, wxSizerFlags(1).Expand().Border(wxTOP));
    return content;
}

wxSizer* TTintPage::NewEnd(TTintEnd end, const wxString& caption, const TChannelBars::TNames& names)
{
    auto* sizer = new wxStaticBoxSizer(wxVERTICAL, this, caption);
    auto* bars = new TChannelBars(sizer->GetStaticBox(), caption, TintRange, names);
    bars->OnChange = [this, end](TChannel channel, int value) {
        m_murala.Editor.SetTint(Items(), end, channel, value);
    };
    bars->OnSettled = [this] { m_murala.Editor.Save(); };
    End(end) = {sizer->GetStaticBox(), bars};
    sizer->Add(bars, wxSizerFlags(1).Expand().Border());
    return sizer;
}

void TTintPage::ShowItem(const TMuWallpaper* item)
{
    static const TMuWallpaper none;
    const TMuWallpaper& shown = item != nullptr ? *item : none;
    m_style->SetSelection(shown.GammaStyle < std::size(GammaStyleNames) ? shown.GammaStyle : 0);
    m_start.Bars->ShowTint(shown.StartTint());
    m_end.Bars->ShowTint(shown.EndTint());
    m_style->Enable(item != nullptr);
    m_start.Box->Enable(item != nullptr && item->GammaStyle != gsNone);
    m_end.Box->Enable(item != nullptr && item->GammaStyle > gsSolid);
}

} // namespace murala
