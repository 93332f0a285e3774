// What the program asks of the main window: messages, progress, the hourglass, input; where it is,
// and what the tray icon shows.

#include "uMain.h"

#include "uCallLater.h"
#include "uDialog.h"
#include "uMenuPopup.h"
#include "uProcessMemory.h"
#include "uProgress.h"
#include "uWindowSystem.h"

#include <algorithm>
#include <utility>

#include <wx/msgdlg.h>

namespace murala
{

// The parent for a new dialog. A child of the main window would bring it before an open modal
// dialog, and enable it when it ends.
wxWindow* TfMain::TopWindow()
{
    if (const auto dialogs = ModalDialogs(); !dialogs.empty())
        return dialogs.back();
    return IsShown() ? this : nullptr;
}

void TfMain::ShowMessage(const std::string& text)
{
    fProgress.reset(); // nothing would paint it during the message
    // No hourglass over a question.
    const TValueScope depth(m_busyDepth, 0);
    const bool wasBusy = m_busyCursor.has_value();
    m_busyCursor.reset();
    // While the window is hidden, a message would open behind the window that the user works with:
    // it stays on top and gets an entry in the task bar.
    wxWindow* top = TopWindow();
    const long place = top == nullptr ? wxSTAY_ON_TOP : wxCENTRE;
    if (top == nullptr)
        CallLater(*this, [] { ShowModalWindowInTaskBar(); });
    wxMessageBox(ToWx(text), "Murala", wxOK | wxICON_INFORMATION | place, top);
    if (wasBusy)
        m_busyCursor.emplace();
}

namespace
{

// Progress in the bottom panel's bar and in a dialog in which the user can end the work; the end of
// the session ends it, too.
class TMainWork : public TLongWork
{
public:
    TMainWork(wxWindow* window, wxGauge& bar, int range, const TWindowPresence& presence)
        : m_bar(bar), m_dialog(window, range), m_presence(presence)
    {
        m_bar.SetRange(std::max(range, 1));
    }
    ~TMainWork() override { Show(false); }

    void Finish(const std::string& text) override
    {
        m_bar.GetParent()->Update();
        m_dialog.Finish(text);
    }

    bool Step(int position, const std::string& text) override
    {
        if (m_dialog.IsDue()) {
            m_bar.SetValue(std::min(position, m_bar.GetRange()));
            Show(true);
            m_bar.GetParent()->Update();
        }
        return m_dialog.Step(position, text) && m_presence.Where() != TPresence::Going;
    }

private:
    void Show(bool show)
    {
        if (m_bar.Show(show))
            m_bar.GetParent()->Layout();
    }

    wxGauge& m_bar;
    TProgressDialog m_dialog;
    const TWindowPresence& m_presence;
};

} // namespace

std::unique_ptr<TLongWork> TfMain::BeginWork(int range)
{
    return std::make_unique<TMainWork>(TopWindow(), m_panel->Bottom().ProgressBar(), range,
                                       m_presence);
}

void TfMain::SetBusy(bool busy)
{
    m_busyDepth += busy ? 1 : -1;
    if (m_busyDepth == 0)
        m_busyCursor.reset();
    else if (!m_busyCursor)
        m_busyCursor.emplace();
}

// Disabling takes the focus away; it is remembered.
void TfMain::EnableWindow(bool enable)
{
    m_disabledDepth += enable ? -1 : 1;
    if (!enable && m_disabledDepth == 1) {
        m_wasEnabled = IsThisEnabled();
        m_focusBefore = FindFocus();
        m_isFocusTaken = true;
        Disable();
    } else if (enable && m_disabledDepth == 0 && m_wasEnabled) {
        Enable();
        RestoreFocus();
    }
}

// What had the focus was disabled meanwhile, or has gone: the first pictures came, or the last one
// went. An inactive window gets its focus when it is active again.
void TfMain::RestoreFocus()
{
    if (!IsActive() || !IsThisEnabled())
        return;
    wxWindow* focus = m_isFocusTaken ? m_focusBefore.get() : FindFocus();
    const bool wasTaken = std::exchange(m_isFocusTaken, false);
    if (focus == nullptr || !focus->IsShownOnScreen())
        m_panel->Wallpapers().TakeFocus();
    else if (wasTaken && wxGetTopLevelParent(focus) == this)
        focus->SetFocus();
}

void TfMain::ConnectTray()
{
    std::vector<TTrayArea*> others;
    m_toolkitTray = NewToolkitTrayArea();
    if (m_toolkitTray)
        others.push_back(m_toolkitTray.get());
    m_murala.Tray.Connect(*this, alMain, NewTrayFrame, others);
}

// The window manager may put it elsewhere, and until it has done so the frame has no borders.
void TfMain::ShowFrame()
{
    if (!std::exchange(m_wasShown, true))
        PrepareFirstShow(*this, [this] { m_presence.CameToScreen(); });
    Show();
}

void TfMain::HideFrame()
{
    Hide();
    m_murala.Preview.Clear();
    m_murala.Core.List.FreeAllThumbnails();
    GiveBackFreeMemory();
}

void TfMain::PlaceFrame(bool isFirstTime)
{
    if (!IsMaximized())
        SetSize(m_placement.Left, m_placement.Top, m_placement.Width, m_placement.Height);
    // Where the rows were scrolled to before was in a view of another size.
    if (isFirstTime)
        CallLater(*this, [this] { m_panel->Wallpapers().BringFocusIntoView(); });
}

void TfMain::BringToFront()
{
    if (IsWindowVisible())
        Raise();
}

void TfMain::tIconsTimer()
{
    if (!m_murala.Tray.IconsTick())
        tIcons.Stop();
}

TMenuTarget TfMain::ShowMenu(TTrayModel& menu, TPoint place)
{
    return PopupMenuAt(menu, wxPoint(place.X, place.Y));
}

} // namespace murala
