#include "uDesktopPage.h"

#include "uSwatch.h"
#include "uWindowSystem.h"
#include "uWxBitmap.h"

namespace murala
{

namespace
{
constexpr TColor Black = 0, White = 0xFFFFFF;
}

TDesktopPage::TDesktopPage(wxWindow* parent, TMurala& murala, TActionBinder& binder,
                           TActionList& actions)
    : TSettingsPage(parent, murala, "tsDesktop"), m_binder(binder), m_actions(actions)
{
}

wxSizer* TDesktopPage::NewContent()
{
    auto* label = new wxStaticText(this, wxID_ANY, "Desktop Color");
    m_desktopColor = NewSwatch(this, wxSize(48, 24), "pDesktopColor");
    auto* choose = new wxBoxSizer(wxHORIZONTAL);
    choose->Add(label, wxSizerFlags().CenterVertical());
    choose->Add(m_desktopColor, wxSizerFlags().CenterVertical().Border(wxLEFT | wxRIGHT));
    wxButton* select = m_binder.NewButton(this, aDesktopColor, "bDesktopColor");
    select->SetLabel("Select &Color");
    choose->Add(select, wxSizerFlags().CenterVertical());

    m_black = NewColorButton(Black, "pBlack", "white icon text", "Black desktop (white icon text)");
    m_white = NewColorButton(White, "pWhite", "black icon text", "White desktop (black icon text)");
    auto* colors = new wxBoxSizer(wxHORIZONTAL);
    colors->Add(m_black, wxSizerFlags(1));
    colors->Add(m_white, wxSizerFlags(1).Border(wxLEFT));

    m_transparentIcons = m_binder.NewCheckBox(this, aTransparentIcons, "cbTransparentIcons");
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(choose, wxSizerFlags().Expand());
    content->Add(colors, wxSizerFlags().Expand().DoubleBorder(wxTOP));
    content->Add(m_transparentIcons, wxSizerFlags().DoubleBorder(wxTOP));
    return content;
}

wxButton* TDesktopPage::NewColorButton(TColor color, const wxString& name, const wxString& caption,
                                       const wxString& hint)
{
    auto* button = new wxButton(this, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                                wxDefaultValidator, name);
    SetButtonColors(*button, ToWxColour(color), ToWxColour(White - color));
    button->SetToolTip(hint);
    button->Bind(wxEVT_BUTTON, [this, color](wxCommandEvent&) {
        m_murala.Editor.SetDesktopColor(Items(), color);
    });
    return button;
}

void TDesktopPage::ShowItem(const TMuWallpaper* item)
{
    m_desktopColor->SetBackgroundColour(item != nullptr ? ToWxColour(item->DesktopColor)
                                                        : GetBackgroundColour());
    m_desktopColor->Refresh();
    m_black->Enable(item != nullptr);
    m_white->Enable(item != nullptr);
    const TAction& transparent = m_actions[aTransparentIcons];
    m_transparentIcons->Enable(transparent.Enabled());
    m_transparentIcons->SetValue(transparent.Checked());
    m_transparentIcons->SetToolTip(ToWx(transparent.Hint));
}

} // namespace murala
