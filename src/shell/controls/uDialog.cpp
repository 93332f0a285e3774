#include "uDialog.h"

#include "uCallLater.h"
#include "uWindowSystem.h"

#include <wx/dialog.h>
#include <wx/sizer.h>

namespace murala
{

void FinishDialog(wxDialog& dialog, wxSizer* content, wxWindow& first)
{
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(content, wxSizerFlags(1).Expand().TripleBorder());
    auto* buttons = dialog.CreateSeparatedButtonSizer(wxOK | wxCANCEL);
    // No access keys: their letters belong to other controls of the dialog.
    dialog.FindWindow(wxID_OK)->SetLabel("Ok");
    dialog.FindWindow(wxID_CANCEL)->SetLabel("Cancel");
    frame->Add(buttons, wxSizerFlags().Expand().DoubleBorder());
    ConnectMnemonics(dialog);
    dialog.SetSizerAndFit(frame);
    dialog.CentreOnParent();
    FocusFirst(dialog, first);
}

void FinishDialog(wxDialog& dialog, wxWindow* content)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(content, wxSizerFlags(1).Expand());
    FinishDialog(dialog, rows, *content);
}

// Later, when the dialog is on the screen: before that GTK would give the focus to the default
// button.
void FocusFirst(wxDialog& dialog, wxWindow& first)
{
    CallLater(dialog, [&first] { first.SetFocus(); });
}

std::vector<wxDialog*> ModalDialogs()
{
    std::vector<wxDialog*> dialogs;
    for (wxWindow* window : wxTopLevelWindows)
        if (auto* dialog = dynamic_cast<wxDialog*>(window); dialog != nullptr && dialog->IsModal())
            dialogs.push_back(dialog);
    return dialogs;
}

void TNestedDialogs::Exit(wxDialog*)
{
    constexpr int settlingTime =
        100; // milliseconds that the window manager gets to choose by itself
    if (!m_settling)
        m_settling.emplace().Bind(wxEVT_TIMER, [](wxTimerEvent&) {
            const auto dialogs = ModalDialogs();
            if (!dialogs.empty() && !dialogs.back()->IsActive())
                dialogs.back()->Raise();
        });
    m_settling->StartOnce(settlingTime);
}

} // namespace murala
