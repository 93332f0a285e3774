// What our dialogs have in common: how they end, and which control has the focus first.
#pragma once

#include <optional>
#include <vector>

#include <wx/modalhook.h>
#include <wx/timer.h>

class wxSizer;
class wxWindow;

namespace murala
{

// Lays out the dialog: its content with "Ok" and "Cancel" below it, as large as that needs, in the
// middle of its parent. `first`, or else the content, gets the focus.
void FinishDialog(wxDialog& dialog, wxSizer* content, wxWindow& first);
void FinishDialog(wxDialog& dialog, wxWindow* content);

// The same focus for a dialog that has other buttons.
void FocusFirst(wxDialog& dialog, wxWindow& first);

// The modal dialogs on the screen, the topmost one last.
std::vector<wxDialog*> ModalDialogs();

// When a dialog that was opened from another one ends, makes that other one active again: some
// window managers leave this to the program. Works as long as this object lives.
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
        m_settling; // made on first use: at the program's start there is no toolkit for a timer yet
};

} // namespace murala
