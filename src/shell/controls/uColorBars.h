// A colour set by three sliders, each with its number beside it.
#pragma once

#include "uColor.h"

#include <array>
#include <functional>

#include <wx/panel.h>
#include <wx/slider.h>
#include <wx/textctrl.h>

namespace murala
{

class TColorBars : public wxPanel
{
public:
    // Runs when the user moves a slider or types a number.
    std::function<void()> OnChange;

    // The window names of the sliders and of the edits, for red, green and blue. A screen reader
    // says `caption` before them.
    using TNames = std::array<const char*, 3>;
    TColorBars(wxWindow* parent, const wxString& caption, const TNames& bars, const TNames& edits);

    TColor Color() const;
    // Shows a colour without calling OnChange.
    void ShowColor(TColor color);

private:
    void Scroll(std::size_t channel);
    void Type(std::size_t channel);

    std::array<wxSlider*, 3> m_bars{};
    std::array<wxTextCtrl*, 3> m_edits{};
};

} // namespace murala
