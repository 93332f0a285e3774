#include "uSettingsPages.h"

#include "uPreviewPanel.h"

namespace murala
{

namespace
{

constexpr int TintMinimum = -256, TintMaximum = 255, TintPage = 40;
constexpr TColor Black = 0, White = 0xFFFFFF;

struct TTintBar {
    const char* Caption;
    const char* StartName;
    const char* EndName;
};
constexpr TTintBar TintBars[] = {
    {"All &Colours", "tbGammaStart", "tbGammaEnd"},
    {"&Red", "tbGammaRedStart", "tbGammaRedEnd"},
    {"&Green", "tbGammaGreenStart", "tbGammaGreenEnd"},
    {"&Blue", "tbGammaBlueStart", "tbGammaBlueEnd"},
};

} // namespace

TSettingsPage::TSettingsPage(wxWindow* parent, const wxString& name)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxTAB_TRAVERSAL | wxVSCROLL | wxHSCROLL, name)
{
}

void TSettingsPage::Finish(wxSizer* content)
{
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(content, wxSizerFlags(1).Expand().DoubleBorder());
    SetSizer(frame);
    SetScrollRate(FromDIP(8), FromDIP(8));
    FitInside();
}

TDesktopPage::TDesktopPage(wxWindow* parent, TMurala& murala, TActionBinder& binder,
                           TActionList& actions)
    : TSettingsPage(parent, "tsDesktop"), m_murala(murala)
{
    auto* label = new wxStaticText(this, wxID_ANY, "Desktop Color");
    m_desktopColor = new wxPanel(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(48, 24)),
                                 wxBORDER_SIMPLE, "pDesktopColor");
    auto* choose = new wxBoxSizer(wxHORIZONTAL);
    choose->Add(label, wxSizerFlags().CenterVertical());
    choose->Add(m_desktopColor, wxSizerFlags().CenterVertical().Border(wxLEFT | wxRIGHT));
    wxButton* select = binder.NewButton(this, "aDesktopColor", "bDesktopColor");
    select->SetLabel("Select &Color");
    choose->Add(select, wxSizerFlags().CenterVertical());

    m_black = NewColorButton(Black, "pBlack", "white icon text", "Black desktop (white icon text)");
    m_white = NewColorButton(White, "pWhite", "black icon text", "White desktop (black icon text)");
    auto* colors = new wxBoxSizer(wxHORIZONTAL);
    colors->Add(m_black, wxSizerFlags(1));
    colors->Add(m_white, wxSizerFlags(1).Border(wxLEFT));

    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(choose, wxSizerFlags().Expand());
    content->Add(colors, wxSizerFlags().Expand().DoubleBorder(wxTOP));
    const TAction& transparent = actions["aTransparentIcons"];
    if (transparent.IsOffered()) {
        m_transparentIcons =
            new wxCheckBox(this, wxID_ANY, ToWx(transparent.Caption), wxDefaultPosition,
                           wxDefaultSize, 0, wxDefaultValidator, "cbTransparentIcons");
        m_transparentIcons->Bind(wxEVT_CHECKBOX, [&](wxCommandEvent&) { transparent.Execute(); });
        content->Add(m_transparentIcons, wxSizerFlags().DoubleBorder(wxTOP));
    }
    Finish(content);
}

wxButton* TDesktopPage::NewColorButton(TColor color, const wxString& name, const wxString& caption,
                                       const wxString& hint)
{
    auto* button = new wxButton(this, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                                wxDefaultValidator, name);
    button->SetBackgroundColour(ToWxColour(color));
    button->SetForegroundColour(ToWxColour(White - color));
    button->SetToolTip(hint);
    button->Bind(wxEVT_BUTTON, [this, color](wxCommandEvent&) { m_murala.SetDesktopColor(color); });
    return button;
}

void TDesktopPage::ShowItem(const TMuWallpaper* item)
{
    m_desktopColor->SetBackgroundColour(item != nullptr ? ToWxColour(item->DesktopColor)
                                                        : GetBackgroundColour());
    m_desktopColor->Refresh();
    m_black->Enable(item != nullptr);
    m_white->Enable(item != nullptr);
    if (m_transparentIcons != nullptr) {
        m_transparentIcons->Enable(item != nullptr);
        m_transparentIcons->SetValue(item != nullptr && item->TransparentIcons);
    }
}

TTintPage::TTintPage(wxWindow* parent, TMurala& murala)
    : TSettingsPage(parent, "tsGamma"), m_murala(murala)
{
    wxArrayString styles;
    for (const std::string_view style : GammaStyleNames)
        styles.Add(ToWx(style));
    m_style = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, styles, 0,
                           wxDefaultValidator, "cbGammaStyle");
    m_style->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        m_murala.SetGammaStyle(static_cast<TGammaStyle>(event.GetSelection()));
    });
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(m_style, wxSizerFlags().Expand());
    auto* groups = new wxBoxSizer(wxHORIZONTAL);
    groups->Add(NewTintGroup(m_start, TTintEnd::Start), wxSizerFlags(1).Expand());
    groups->Add(NewTintGroup(m_end, TTintEnd::End), wxSizerFlags(1).Expand().Border(wxLEFT));
    content->Add(groups, wxSizerFlags(1).Expand().Border(wxTOP));
    Finish(content);
}

wxSizer* TTintPage::NewTintGroup(TTintGroup& group, TTintEnd end)
{
    const bool isStart = end == TTintEnd::Start;
    auto* sizer = new wxStaticBoxSizer(wxVERTICAL, this, isStart ? "Start Tint" : "End Tint");
    group.Box = sizer->GetStaticBox();
    auto* rows = new wxFlexGridSizer(2, FromDIP(wxSize(4, 2)));
    rows->AddGrowableCol(1);
    for (int i = 0; i < 4; ++i) {
        const TTintBar& row = TintBars[i];
        rows->Add(new wxStaticText(group.Box, wxID_ANY, row.Caption),
                  wxSizerFlags().CenterVertical());
        auto* bar = new wxSlider(group.Box, wxID_ANY, TintMaximum, TintMinimum, TintMaximum,
                                 wxDefaultPosition, wxSize(FromDIP(104), -1),
                                 wxSL_HORIZONTAL | wxSL_AUTOTICKS, wxDefaultValidator,
                                 isStart ? row.StartName : row.EndName);
        bar->SetPageSize(TintPage);
        bar->SetTickFreq(TintPage);
        const auto channel = static_cast<TTintChannel>(i);
        bar->Bind(wxEVT_SLIDER, [=, this](wxCommandEvent&) { tbGammaScroll(end, channel); });
        // The list is saved once the slider stays where it was put.
        bar->Bind(wxEVT_SCROLL_CHANGED, [this](wxScrollEvent& event) {
            event.Skip();
            m_murala.SaveList();
        });
        group.Bars[static_cast<std::size_t>(i)] = bar;
        rows->Add(bar, wxSizerFlags(1).Expand().CenterVertical());
    }
    sizer->Add(rows, wxSizerFlags(1).Expand().Border());
    return sizer;
}

void TTintPage::tbGammaScroll(TTintEnd end, TTintChannel channel)
{
    TTintGroup& group = end == TTintEnd::Start ? m_start : m_end;
    const int value = group.Bars[static_cast<std::size_t>(channel)]->GetValue();
    m_murala.SetTint(end, channel, value);
    for (wxSlider* bar : group.Bars) {
        bar->SetToolTip(wxString::Format("%d", bar->GetValue()));
        if (channel == TTintChannel::All)
            bar->SetValue(value);
    }
}

void TTintPage::ShowItem(const TMuWallpaper* item)
{
    static const TMuWallpaper none;
    const TMuWallpaper& shown = item != nullptr ? *item : none;
    m_style->SetSelection(shown.GammaStyle < std::size(GammaStyleNames) ? shown.GammaStyle : 0);
    const auto show = [](TTintGroup& group, TTint tint) {
        // Where the channels differ no position of the slider for all of them is right: it stands
        // at 0.
        auto bar = group.Bars.begin();
        for (const int value : {tint.IsGrey() ? tint.Red : 0, tint.Red, tint.Green, tint.Blue})
            (*bar++)->SetValue(value);
    };
    show(m_start, shown.StartTint());
    show(m_end, shown.EndTint());
    EnableGroups(item);
}

void TTintPage::EnableGroups(const TMuWallpaper* item)
{
    m_style->Enable(item != nullptr);
    m_start.Box->Enable(item != nullptr && item->GammaStyle != gsNone);
    m_end.Box->Enable(item != nullptr && item->GammaStyle > gsSolid);
}

TEffectPage::TEffectPage(wxWindow* parent, TMurala& murala)
    : TSettingsPage(parent, "tsEffect"), m_murala(murala)
{
    wxArrayString effects;
    effects.Add(ToWx(NoEffect));
    for (const std::string& effect : m_murala.ListEffects())
        effects.Add(ToWx(effect));
    m_effect = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, effects, 0,
                            wxDefaultValidator, "cbEffect");
    m_settings = new wxButton(this, wxID_ANY, "Settings", wxDefaultPosition, wxDefaultSize, 0,
                              wxDefaultValidator, "mulSettings");
    m_effect->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) {
        m_murala.SetEffect(m_effect->GetStringSelection().utf8_string());
        m_settings->Enable(m_effect->GetSelection() > 0);
    });
    m_settings->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_murala.RunEffectSettings(); });
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(m_effect, wxSizerFlags().Expand());
    content->Add(m_settings, wxSizerFlags().DoubleBorder(wxTOP));
    Finish(content);
}

void TEffectPage::ShowItem(const TMuWallpaper* item)
{
    const std::string effect =
        item == nullptr || IsNoEffect(item->Effect) ? std::string(NoEffect) : item->Effect;
    // An effect that was uninstalled stays the item's until the user chooses another.
    if (!m_effect->SetStringSelection(ToWx(effect)))
        m_effect->SetSelection(m_effect->Append(ToWx(effect)));
    m_effect->Enable(item != nullptr);
    m_settings->Enable(item != nullptr && m_effect->GetSelection() > 0);
}

} // namespace murala
