#include "uMnemonics.h"

#include <wx/radiobox.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

namespace murala
{

namespace
{

// Returns 0 for a label without a letter.
int LetterOf(const wxString& label)
{
    wxString text = label;
    text.Replace("&&", "");
    const std::size_t place = text.find('&');
    return place + 1 < text.size() ? wxToupper(text[place + 1]).GetValue() : 0;
}

// The first control in the window that takes the focus; null when there is none.
wxWindow* FirstInput(wxWindow& window)
{
    for (wxWindow* child : window.GetChildren())
        if (wxWindow* found = FirstInput(*child))
            return found;
    return window.AcceptsFocus() ? &window : nullptr;
}

// The first control behind the text that takes the focus.
wxWindow* NextInput(const wxWindow& text)
{
    bool isBehind = false;
    for (wxWindow* sibling : text.GetParent()->GetChildren()) {
        wxWindow* found = isBehind ? FirstInput(*sibling) : nullptr;
        if (found != nullptr)
            return found;
        isBehind = isBehind || sibling == &text;
    }
    return nullptr;
}

wxWindow* TargetOf(wxWindow& name)
{
    if (name.IsKindOf(wxCLASSINFO(wxStaticText)))
        return NextInput(name);
    const bool isFrame =
        name.IsKindOf(wxCLASSINFO(wxStaticBox)) || name.IsKindOf(wxCLASSINFO(wxRadioBox));
    return isFrame ? FirstInput(name) : nullptr;
}

void Collect(wxWindow& window, std::vector<TMnemonic>& mnemonics)
{
    const int letter = LetterOf(window.GetLabel());
    wxWindow* target = letter != 0 ? TargetOf(window) : nullptr;
    if (target != nullptr)
        mnemonics.push_back({&window, target, letter});
    for (wxWindow* child : window.GetChildren())
        if (!child->IsTopLevel())
            Collect(*child, mnemonics);
}

} // namespace

std::vector<TMnemonic> MnemonicsIn(wxWindow& window)
{
    std::vector<TMnemonic> mnemonics;
    Collect(window, mnemonics);
    return mnemonics;
}

} // namespace murala
