// The main window and the notification area: where the window goes, and how it comes back.

#include "uMain.h"

#include "uMenuPopup.h"
#include "uProcessMemory.h"
#include "uTrayFrames.h"
#include "uWindowSystem.h"

#include <utility>

namespace murala
{

namespace
{

// Milliseconds.
constexpr int IconsInterval = 200;
constexpr int SettlingTime = 300; // of a window that has come to the screen

} // namespace

void TfMain::ConnectTray()
{
    std::vector<TTrayArea*> others;
    m_toolkitTray = NewToolkitTrayArea();
    if (m_toolkitTray)
        others.push_back(m_toolkitTray.get());
    m_murala.Tray.Connect(*this, alMain, NewTrayFrame, others);
}

// Hidden where the tray icon brings it back, else minimised.
void TfMain::MinimiseWindow()
{
    if (!m_murala.Tray.CanHide())
        return Iconize();
    const bool wasShown = IsShown();
    Hide();
    ReleasePictures();
    if (wasShown)
        m_murala.Tray.ExplainHiding();
}

// A minimised window leaves the task bar where the tray icon brings it back.
void TfMain::tHideAppWindowTimer()
{
    if (IsShown() && IsIconized() && m_murala.Tray.CanHide())
        MinimiseWindow();
}

// Nobody sees them.
void TfMain::ReleasePictures()
{
    tSelectItem.Stop();
    tPreviewUpdate.Stop();
    tLoadPreview.Stop();
    iPreview->ShowText("");
    m_murala.Preview.Release();
    m_murala.Core.List.FreeAllThumbnails();
    GiveBackFreeMemory();
}

void TfMain::RestoreWindow()
{
    const bool wasHidden = !IsShown();
    m_isStartHidden = false;
    // First: a window that is shown as an icon would be hidden again.
    Iconize(false);
    if (wasHidden)
        ShowFrame();
    Raise();
    if (wasHidden)
        PreviewChanged(true);
}

// The window manager may put it elsewhere, and until it has done so the frame has no borders.
void TfMain::ShowFrame()
{
    if (!std::exchange(m_wasShown, true))
        PrepareFirstShow(*this, [this] {
            if (std::exchange(m_isComing, false))
                tPlacement.StartOnce(SettlingTime);
        });
    m_isComing = true;
    Show();
}

// The window that starts hidden waits for the tray to be known.
void TfMain::ShowAtStart()
{
    if (!m_isStartHidden)
        return ShowFrame();
    if (!m_murala.Tray.CanHide() && !m_murala.Tray.IsAsking())
        ShowIconized();
}

// As an icon it may not come to the screen for long.
void TfMain::ShowIconized()
{
    Iconize();
    ShowFrame();
    tPlacement.StartOnce(SettlingTime);
}

void TfMain::BringToFront()
{
    if (IsWindowVisible())
        Raise();
}

void TfMain::StartIcons()
{
    tIcons.Start(IconsInterval);
}

void TfMain::tIconsTimer()
{
    if (!m_murala.Tray.IconsTick())
        tIcons.Stop();
}

void TfMain::ShowIcon(const TIconImage& image)
{
    SetIcons(ToIconBundle(image));
}

const TMenuItem* TfMain::ShowMenu(const TMenuItem& menu, TPoint place)
{
    return PopupMenuAt(menu, wxPoint(place.X, place.Y));
}

void TfMain::TrayChanged()
{
    if (m_isStarting || m_murala.Tray.IsAsking())
        return;
    if (m_murala.Tray.CanHide()) {
        if (IsShown() && IsIconized())
            Hide();
    } else if (!IsShown()) {
        ShowIconized(); // without the tray's it could not be reached
    }
}

} // namespace murala
