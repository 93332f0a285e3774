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

// The sliders' values; `Page` is how far Page Up and Page Down move them.
struct TChannelRange {
    int Minimum, Maximum, Page;
};
inline constexpr TChannelRange TintRange{-256, 255, 40};

class TChannelBars : public wxPanel
{
public:
    // OnChange runs while the user moves a slider, OnSettled once when it has stayed where it is.
    std::function<void(TChannel channel, int value)> OnChange;
    std::function<void()> OnSettled;

    // The window names of the sliders, by TChannel.
    using TNames = std::array<const char*, 4>;
    // Estimates the size of the sliders before they are made.
    static wxSize LikelySize(const wxWindow& parent);
    // A screen reader says `caption`, the name of the group, before a slider's own name.
    // `haveLetters`: Alt and a letter lead to the sliders; false where a window has several such
    // groups.
    TChannelBars(wxWindow* parent, const wxString& caption, TChannelRange range,
                 const TNames& names, bool haveLetters = true);

    // Shows a tint without calling OnChange. Where the channels differ, no position of the slider
    // for all of them is right: it stands at 0.
    void ShowTint(const TTint& tint);
    // Shows or hides the three sliders of single channels, which are shown at first.
    void ShowChannels(bool show);
    // Calls OnSettled now for a slider that was moved a moment ago.
    void Settle();

private:
    void Scroll(TChannel channel);
    void Show(TChannel channel, int value);

    std::array<wxSlider*, 4> m_bars{};
    wxTimer m_settling;
};

} // namespace murala
