// The main window and the notification area: where the window goes, and how it comes back.

#include "uMain.h"

#include "uCallLater.h"
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
constexpr int MinimiseTime = 50;  // until a minimised window leaves the task bar

} // namespace

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

void TfMain::WaitToSettle()
{
    tPlacement.StartOnce(SettlingTime);
}

void TfMain::WaitToHideIcon()
{
    tHideAppWindow.StartOnce(MinimiseTime);
}

void TfMain::CloseLater()
{
    CallLater(*this, [this] { Close(); });
}

void TfMain::WakeLater()
{
    CallLater(*this, [this] { WakeUp(); });
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

TMenuTarget TfMain::ShowMenu(TTrayModel& menu, TPoint place)
{
    return PopupMenuAt(menu, wxPoint(place.X, place.Y));
}

} // namespace murala
