#include "uColorBars.h"

#include "uWindowSystem.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/valtext.h>

namespace murala
{

namespace
{

constexpr int BarWidth = 130; // DIPs
constexpr int Page = 16;      // of a slider
constexpr const char* Captions[] = {"Red", "Green", "Blue"};

} // namespace

TColorBars::TColorBars(wxWindow* parent, const wxString& caption, const TNames& bars,
                       const TNames& edits)
    : wxPanel(parent)
{
    auto* rows = new wxFlexGridSizer(3, FromDIP(wxSize(6, 2)));
    rows->AddGrowableCol(1);
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        rows->Add(new wxStaticText(this, wxID_ANY, Captions[i]), wxSizerFlags().CenterVertical());
        m_bars[i] = new wxSlider(this, wxID_ANY, 0, 0, 255, wxDefaultPosition,
                                 wxSize(FromDIP(BarWidth), -1), wxSL_HORIZONTAL, wxDefaultValidator,
                                 bars[i]);
        m_bars[i]->SetPageSize(Page);
        m_edits[i] = new wxTextCtrl(this, wxID_ANY, "0", wxDefaultPosition, wxDefaultSize,
                                    wxTE_RIGHT, wxTextValidator(wxFILTER_DIGITS), edits[i]);
        m_edits[i]->SetMaxLength(3);
        m_edits[i]->SetInitialSize(m_edits[i]->GetSizeFromTextSize(GetTextExtent("0000").x));
        const wxString name = caption + ": " + Captions[i];
        SetAccessibleName(*m_bars[i], name);
        SetAccessibleName(*m_edits[i], name);
        m_bars[i]->Bind(wxEVT_SLIDER, [this, i](wxCommandEvent&) { Scroll(i); });
        m_edits[i]->Bind(wxEVT_TEXT, [this, i](wxCommandEvent&) { Type(i); });
        // A text that is not a colour value is replaced by the slider's value.
        m_edits[i]->Bind(wxEVT_KILL_FOCUS, [this, i](wxFocusEvent& event) {
            event.Skip();
            m_edits[i]->ChangeValue(std::to_string(m_bars[i]->GetValue()));
        });
        rows->Add(m_bars[i], wxSizerFlags(1).Expand().CenterVertical());
        rows->Add(m_edits[i], wxSizerFlags().CenterVertical());
    }
    SetSizer(rows);
}

TColor TColorBars::Color() const
{
    const auto value = [this](std::size_t i) { return static_cast<TColor>(m_bars[i]->GetValue()); };
    return value(0) | value(1) << 8U | value(2) << 16U;
}

void TColorBars::ShowColor(TColor color)
{
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        const auto value = static_cast<int>(color >> (8 * i) & 0xFFU);
        m_bars[i]->SetValue(value);
        m_edits[i]->ChangeValue(std::to_string(value));
    }
}

void TColorBars::Scroll(std::size_t channel)
{
    m_edits[channel]->ChangeValue(std::to_string(m_bars[channel]->GetValue()));
    if (OnChange)
        OnChange();
}

void TColorBars::Type(std::size_t channel)
{
    long value = 0;
    if (!m_edits[channel]->GetValue().ToLong(&value) || value < 0 || value > 255)
        return;
    m_bars[channel]->SetValue(static_cast<int>(value));
    if (OnChange)
        OnChange();
}

} // namespace murala
