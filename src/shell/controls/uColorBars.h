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
    // The user moves a slider or types a number.
    std::function<void()> OnChange;

    // The window names of the sliders and of the edits: red, green, blue. `caption` is what a
    // screen reader says before them.
    using TNames = std::array<const char*, 3>;
    TColorBars(wxWindow* parent, const wxString& caption, const TNames& bars, const TNames& edits);

    TColor Color() const;
    // Nobody is told.
    void ShowColor(TColor color);

private:
    void Scroll(std::size_t channel);
    void Type(std::size_t channel);

    std::array<wxSlider*, 3> m_bars{};
    std::array<wxTextCtrl*, 3> m_edits{};
};

} // namespace murala
