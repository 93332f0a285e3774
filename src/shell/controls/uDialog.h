// How every dialog of ours ends.
#pragma once

class wxDialog;
class wxSizer;
class wxWindow;

namespace murala
{

// Its content with "Ok" and "Cancel" below, as large as that needs, in the middle of its parent.
void FinishDialog(wxDialog& dialog, wxSizer* content);
void FinishDialog(wxDialog& dialog, wxWindow* content);

} // namespace murala
