#include "uChannelBars.h"

#include "uWindowSystem.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

namespace murala
{

namespace
{

constexpr const char* Captions[] = {"All &Colours", "&Red", "&Green", "&Blue"};
constexpr int SettlingTime = 300; // milliseconds
constexpr int BarWidth = 104;     // DIPs
constexpr int BarHeight = 36;     // DIPs, with its ticks, at the most
const wxSize Gap(4, 2);           // DIPs

} // namespace

wxSize TChannelBars::LikelySize(const wxWindow& parent)
{
    const int caption = parent.GetTextExtent(wxControl::RemoveMnemonics(Captions[0])).x;
    return parent.FromDIP(Gap + wxSize(BarWidth, 4 * BarHeight)) + wxSize(caption, 0);
}

TChannelBars::TChannelBars(wxWindow* parent, const wxString& caption, TChannelRange range,
                           const TNames& names, bool haveLetters)
    : wxPanel(parent)
{
    auto* rows = new wxFlexGridSizer(2, FromDIP(Gap));
    rows->AddGrowableCol(1);
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        const wxString plain = wxControl::RemoveMnemonics(Captions[i]);
        rows->Add(new wxStaticText(this, wxID_ANY, haveLetters ? wxString(Captions[i]) : plain),
                  wxSizerFlags().CenterVertical());
        m_bars[i] = new wxSlider(this, wxID_ANY, range.Maximum, range.Minimum, range.Maximum,
                                 wxDefaultPosition, wxSize(FromDIP(BarWidth), -1),
                                 wxSL_HORIZONTAL | wxSL_AUTOTICKS, wxDefaultValidator, names[i]);
        SetAccessibleName(*m_bars[i], caption + ": " + plain);
        m_bars[i]->SetPageSize(range.Page);
        m_bars[i]->SetTickFreq(range.Page);
        const auto channel = static_cast<TChannel>(i);
        m_bars[i]->Bind(wxEVT_SLIDER, [this, channel](wxCommandEvent&) { Scroll(channel); });
        m_bars[i]->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
            event.Skip();
            Settle();
        });
        rows->Add(m_bars[i], wxSizerFlags(1).Expand().CenterVertical());
    }
    SetSizer(rows);
    m_settling.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (OnSettled)
            OnSettled();
    });
}

void TChannelBars::Show(TChannel channel, int value)
{
    wxSlider* bar = m_bars[static_cast<std::size_t>(channel)];
    bar->SetValue(value);
    bar->SetToolTip(wxString::Format("%d", value));
}

void TChannelBars::ShowChannels(bool show)
{
    for (std::size_t i = 2; i < 2 * m_bars.size(); ++i) // behind the first row
        GetSizer()->Show(i, show);
    Layout();
}

void TChannelBars::ShowTint(const TTint& tint)
{
    Show(TChannel::All, tint.IsGrey() ? tint.Red : 0);
    Show(TChannel::Red, tint.Red);
    Show(TChannel::Green, tint.Green);
    Show(TChannel::Blue, tint.Blue);
}

void TChannelBars::Scroll(TChannel channel)
{
    const int value = m_bars[static_cast<std::size_t>(channel)]->GetValue();
    if (channel == TChannel::All)
        ShowTint({value, value, value});
    else
        Show(channel, value);
    if (OnChange)
        OnChange(channel, value);
    m_settling.StartOnce(SettlingTime);
}

void TChannelBars::Settle()
{
    if (!m_settling.IsRunning())
        return;
    m_settling.Stop();
    if (OnSettled)
        OnSettled();
}

} // namespace murala
