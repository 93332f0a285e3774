// Finds which control a letter behind "&" in a text or a frame leads to.
#pragma once

#include <vector>

class wxWindow;

namespace murala
{

struct TMnemonic {
    wxWindow* Name;   // the text or the frame
    wxWindow* Target; // the control that takes the keyboard
    int Letter;       // in upper case
};

// All letters of the window: a text's leads to the control behind it, a frame's to the first
// control in it.
std::vector<TMnemonic> MnemonicsIn(wxWindow& window);

} // namespace murala
