// The letters behind "&" in texts and frames, and the controls that they are for.
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

// Of all texts and frames in the window that have a letter: a text names the control behind it, a
// frame the first one in it.
std::vector<TMnemonic> MnemonicsIn(wxWindow& window);

} // namespace murala
