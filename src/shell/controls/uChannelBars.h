// The four sliders of a colour: all channels together, red, green, blue.
#pragma once

#include "uColor.h"

#include <array>
#include <functional>

#include <wx/panel.h>
#include <wx/slider.h>
#include <wx/timer.h>

namespace murala
{

// Values, and how far a page key moves.
struct TChannelRange {
    int Minimum, Maximum, Page;
};
inline constexpr TChannelRange TintRange{-256, 255, 40};

class TChannelBars : public wxPanel
{
public:
    // The user moves a slider; then, once, that it stays where it is.
    std::function<void(TChannel channel, int value)> OnChange;
    std::function<void()> OnSettled;

    // The window names of the sliders, by TChannel.
    using TNames = std::array<const char*, 4>;
    // What they will need, about, before they are made.
    static wxSize LikelySize(const wxWindow& parent);
    // `caption`: what a screen reader says before a slider's own name, that of their group.
    // `haveLetters`: Alt and a letter lead to them; not where there are many of their kind.
    TChannelBars(wxWindow* parent, const wxString& caption, TChannelRange range,
                 const TNames& names, bool haveLetters = true);

    // Nobody is told. Where the channels differ no position of the slider for all of them is right:
    // it stands at 0.
    void ShowTint(const TTint& tint);
    // The three sliders of single channels; they are shown at first.
    void ShowChannels(bool show);
    // Tells at once of what has not settled yet.
    void Settle();

private:
    void Scroll(TChannel channel);
    void Show(TChannel channel, int value);

    std::array<wxSlider*, 4> m_bars{};
    wxTimer m_settling;
};

} // namespace murala
