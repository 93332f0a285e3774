#include "uProgress.h"

#include "uWindowSystem.h"
#include "uWxText.h"

#include <algorithm>
#include <utility>

#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/progdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace murala
{

namespace
{
constexpr std::chrono::milliseconds Patience{300};
// The longest time without an answer to the user, before the dialog comes and while it is open.
constexpr std::chrono::milliseconds FirstAnswer{30}, Answering{20};
} // namespace

TfProgress::TfProgress(std::string text) : m_text(std::move(text))
{
}

TfProgress::~TfProgress()
{
    if (m_window == nullptr)
        return;
    m_window->Hide(); // the toolkit would keep the program's only window open otherwise
    m_window->Destroy();
}

void TfProgress::Step()
{
    if (m_window != nullptr || std::chrono::steady_clock::now() - m_start < Patience)
        return;
    m_window = new wxFrame(nullptr, wxID_ANY, "Please Wait", wxDefaultPosition, wxDefaultSize,
                           wxCAPTION | wxFRAME_NO_TASKBAR, "TfProgress");
    auto* panel = new wxPanel(m_window);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new wxStaticText(panel, wxID_ANY, ToWx(m_text)),
              wxSizerFlags().Expand().TripleBorder());
    rows->SetMinSize(m_window->FromDIP(wxSize(300, -1)));
    panel->SetSizerAndFit(rows);
    m_window->Fit();
    m_window->CentreOnScreen();
    m_window->Show();
    m_window->Update();
}

TProgressDialog::TProgressDialog(wxWindow* parent, int range) : m_parent(parent), m_range(range)
{
}

// Gives the input back to the other windows, which were disabled.
TProgressDialog::~TProgressDialog()
{
    if (m_dialog == nullptr)
        return;
    m_dialog.reset();
    m_restoreInput();
}

bool TProgressDialog::IsDue() const
{
    return !m_isCancelled &&
           std::chrono::steady_clock::now() - m_lastTold >= (m_dialog ? Answering : FirstAnswer);
}

bool TProgressDialog::Step(int position, const std::string& text)
{
    if (!IsDue())
        return !m_isCancelled;
    if (m_dialog == nullptr) {
        m_restoreInput = RememberInput();
        m_dialog = std::make_unique<wxProgressDialog>(
            "Please Wait", ProgressText(ToWx(text)), std::max(m_range, 1), m_parent,
            wxPD_APP_MODAL | wxPD_CAN_ABORT | wxPD_SMOOTH);
    }
    // A full bar would close the dialog.
    m_isCancelled = !m_dialog->Update(std::min(position, m_range - 1), ProgressText(ToWx(text)));
    m_lastTold = std::chrono::steady_clock::now();
    return !m_isCancelled;
}

void TProgressDialog::Finish(const std::string& text)
{
    if (m_dialog != nullptr)
        m_dialog->Update(m_range - 1, ProgressText(ToWx(text)));
}

} // namespace murala
