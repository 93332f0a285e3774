// The main window.
#pragma once

#include "uActionBinder.h"
#include "uCallLater.h"
#include "uInstanceLink.h"
#include "uMainPanel.h"
#include "uMurala.h"
#include "uToolkitTray.h"
#include "uTrayFrames.h"
#include "uWindowPresence.h"
#include "uWindowSystem.h"
#include "uWxText.h"

#include <optional>

#include <wx/frame.h>
#include <wx/timer.h>
#include <wx/weakref.h>

namespace murala
{

class TfProgress;

class TfMain : public wxFrame,
               private TMainView,
               private TTrayView,
               private TFrame,
               private TListener
{
public:
    // Builds the window without showing it, and loads settings and list. From now on other copies
    // find this one.
    TfMain(const TServices& services, TInstanceLink& link);
    ~TfMain() override;

    // Releases the start lock, applies a wallpaper if the arguments say so, shows the window where
    // it stood at the last end, and adds the files that are waiting.
    void Activate(const std::vector<std::string>& arguments);

    TMurala& Murala() { return m_murala; }
    TActionList& Actions() { return alMain; }

private:
    // Milliseconds.
    static constexpr int IconsInterval = 200; // of the icon's animation
    static constexpr int SettlingTime = 300;  // of a window that has come to the screen
    static constexpr int MinimiseTime = 50;   // until a minimised window leaves the task bar

    // Building, in this order.
    void BindWallpaperActions();
    void BindItemActions();
    void BindWindowActions();
    void BindSystemActions();
    void BindAddOnActions();
    void BuildMenuBar();
    void ConnectActions();
    void BindEvents();
    void BindTimers();

    // Actions.
    int RunModal(wxDialog& dialog);
    void aAddExecute();
    void aDesktopColorExecute();
    void aAboutExecute();
    void aNewGradientExecute();
    void aCalendarOptionsExecute();
    void aIconBoxOptionsExecute();
    void aConfigurationExecute();
    void aChangeCategoryExecute();
    void SetPreviewSize(TPreviewSize size);
    void SetViewMode(TViewMode mode);
    void SetThumbnailSize(TThumbnailSize size);

    // Events.
    void tScheduleTimer();
    void StartSchedule();
    void tRefreshIconsTimer();
    void tIconsTimer();
    void FormDropFiles(wxDropFilesEvent& event);
    void FormCharHook(wxKeyEvent& event);
    void FormMoving(wxMoveEvent& event);
    void FormDpiChanged(wxDPIChangedEvent& event);
    void FormClose(wxCloseEvent& event);
    void WakeUp();
    void ConnectTray();
    void SaveForSessionEnd();
    void EndSession();
    void TrackPlacement();
    void RestoreFocus();
    void LoadSettings();

    void SetSmallestSize();
    void Place(const TPlacement& placement);
    void UpdateHints();
    void ShowLastChange();
    wxWindow* TopWindow();

    // TMainView.
    void ShowMessage(const std::string& text) override;
    void SetStatus(const std::string& text) override { m_panel->Bottom().ShowStatus(text); }
    std::unique_ptr<TLongWork> BeginWork(int range) override;
    void SetBusy(bool busy) override;
    void EnableWindow(bool enable) override;
    bool IsWindowVisible() override { return m_presence.IsVisible(); }
    void MinimiseWindow() override { m_presence.Minimise(); }
    TPlacement NormalPlacement() override { return m_placement; }
    int PreviewWidth(TSize screen) override { return m_panel->Preview().PictureWidth(screen); }
    void ShowPreview(const TBitmap& picture) override { m_panel->Preview().ShowPicture(picture); }
    void ShowPreviewText(const std::string& text) override
    {
        m_panel->Preview().ShowText(ToWx(text));
    }
    void WakePreview(int milliseconds) override { tPreview.StartOnce(milliseconds); }

    // TFrame.
    void ShowFrame() override;
    void HideFrame() override;
    void IconizeFrame(bool iconize) override { Iconize(iconize); }
    bool IsIcon() const override { return IsIconized(); }
    void RaiseFrame() override { Raise(); }
    void PlaceFrame(bool isFirstTime) override;
    void Appear() override { m_murala.Preview.SelectionChanged(); }
    void ExplainHiding() override { m_murala.Tray.ExplainHiding(); }
    void WaitToSettle() override { tPlacement.StartOnce(SettlingTime); }
    void WaitToHideIcon() override { tHideAppWindow.StartOnce(MinimiseTime); }
    void CloseLater() override
    {
        CallLater(*this, [this] { Close(); });
    }
    void WakeLater() override
    {
        CallLater(*this, [this] { WakeUp(); });
    }

    // TTrayView.
    void RestoreWindow() override { m_presence.Restore(); }
    void RaiseDialog() override { RaiseModalWindow(); }
    void BringToFront() override;
    void StartIcons() override { tIcons.Start(IconsInterval); }
    void ShowIcon(const TIconImage& image) override { SetIcons(ToIconBundle(image)); }
    TMenuTarget ShowMenu(TTrayModel& menu, TPoint place) override;
    void TrayChanged() override { m_presence.WayBackChanged(); }

    // TListener.
    void ItemsChanged(const TItems&) override { UpdateHints(); }
    void SelectionChanged() override { UpdateHints(); }
    void CurrentChanged(TCurrentChange change) override;
    void SettingsChanged() override;
    void PauseChanged() override;

    // The program's tray icon uses it to its end. Null where the desktop needs no other.
    std::unique_ptr<TTrayArea> m_toolkitTray;
    TMurala m_murala;
    TWindowPresence m_presence;
    TActionList alMain;
    TActionBinder m_binder;
    TServices m_services;
    TInstanceLink& m_link;
    std::optional<TDoorway> m_way; // until it closes

    std::unique_ptr<TfProgress> fProgress; // while the program starts
    TMainPanel* m_panel = nullptr;
    wxTimer tPreview, tSchedule, tRefreshIcons, tIcons, tPlacement, tHideAppWindow, tEnd;
    TPlacement m_placement;
    std::optional<wxBusyCursor> m_busyCursor;
    int m_busyDepth = 0, m_disabledDepth = 0;
    wxWeakRef<wxWindow> m_focusBefore; // of being disabled
    bool m_isFocusTaken = false;       // and not given back yet
    bool m_wasEnabled = true;
    bool m_wasShown = false, m_wasPainted = false;
    TSubscription m_subscription;
};

} // namespace murala
