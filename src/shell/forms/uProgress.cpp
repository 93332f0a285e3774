#include "uProgress.h"

#include "uWxText.h"

#include <utility>

#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace murala
{

namespace
{
constexpr std::chrono::milliseconds Patience{300};
}

TfProgress::TfProgress(std::string text) : m_text(std::move(text))
{
}

TfProgress::~TfProgress()
{
    if (m_window != nullptr)
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

} // namespace murala
