// How every dialog of ours ends.
#pragma once

#include <vector>

class wxDialog;
class wxSizer;
class wxWindow;

namespace murala
{

// Its content with "Ok" and "Cancel" below, as large as that needs, in the middle of its parent.
void FinishDialog(wxDialog& dialog, wxSizer* content);
void FinishDialog(wxDialog& dialog, wxWindow* content);

// Those that are shown, the topmost one last.
std::vector<wxDialog*> ModalDialogs();

} // namespace murala
