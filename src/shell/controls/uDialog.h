// What the dialogs of ours have in common: how they end, and where the keyboard begins.
#pragma once

#include <vector>

class wxDialog;
class wxSizer;
class wxWindow;

namespace murala
{

// Its content with "Ok" and "Cancel" below, as large as that needs, in the middle of its parent.
// The keyboard begins at `first`; without it, at the content.
void FinishDialog(wxDialog& dialog, wxSizer* content, wxWindow& first);
void FinishDialog(wxDialog& dialog, wxWindow* content);

// For a dialog that ends in another way: where the keyboard begins.
void FocusFirst(wxDialog& dialog, wxWindow& first);

// Those that are shown, the topmost one last.
std::vector<wxDialog*> ModalDialogs();

} // namespace murala
