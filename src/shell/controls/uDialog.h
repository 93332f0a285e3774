// What the dialogs of ours have in common: how they end, and where the keyboard begins.
#pragma once

#include <optional>
#include <vector>

#include <wx/modalhook.h>
#include <wx/timer.h>

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

// Makes the first dialog active again when one that it has opened ends: some window managers leave
// that to the program. Works while it lives.
class TNestedDialogs : public wxModalDialogHook
{
public:
    TNestedDialogs() { Register(); }
    TNestedDialogs(const TNestedDialogs&) = delete;
    TNestedDialogs& operator=(const TNestedDialogs&) = delete;
    ~TNestedDialogs() override { Unregister(); }

private:
    int Enter(wxDialog*) override { return wxID_NONE; }
    void Exit(wxDialog*) override;

    std::optional<wxTimer>
        m_settling; // a timer needs the toolkit, which is not there from the start
};

} // namespace murala
