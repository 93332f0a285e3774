// The main window.
#pragma once

#include "uActionBinder.h"
#include "uInstanceLink.h"
#include "uMurala.h"
#include "uPreviewPanel.h"
#include "uToolkitTray.h"
#include "uWindowSystem.h"
#include "uWallpaperPanel.h"

#include <optional>

#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/notebook.h>
#include <wx/splitter.h>
#include <wx/timer.h>
#include <wx/weakref.h>

namespace murala
{

class TAddOnsPage;
class TSettingsPage;
class TfProgress;

class TfMain : public wxFrame, private TMainView, private TTrayView, private TListener
{
public:
    // Builds the window, invisible, with the settings and the list loaded. Other copies find this
    // one from now on.
    TfMain(const TServices& services, TInstanceLink& link);
    ~TfMain() override;

    // The first activation: releases the start lock, applies a wallpaper when the arguments say so,
    // shows the window where it stood at the last end, and takes in the files that are waiting.
    void Activate(const std::vector<std::string>& arguments);

    TMurala& Murala() { return m_murala; }
    TActionList& Actions() { return alMain; }
    // What an action, a timer or an event has thrown: tells it, and the program goes on.
    void ReportError(const std::exception& error, TReport report);

private:
    // Building, in this order.
    void BindWallpaperActions();
    void BindItemActions();
    void BindWindowActions();
    void BindSystemActions();
    void BindAddOnActions();
    void BuildMenuBar();
    void BuildClient();
    wxWindow* BuildRightPanel(wxWindow* parent);
    wxWindow* BuildBottomPanel(wxWindow* parent);
    void BindEvents();
    void BindTimers();
    void BindSplitters();

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
    void tSelectItemTimer();
    void tLoadPreviewTimer();
    void tPreviewUpdateTimer();
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
    void tHideAppWindowTimer();
    void ShowFrame();
    void ShowAtStart();
    void ShowIconized();
    void ReleasePictures();
    void SaveForSessionEnd();
    void EndSession();
    void CloseWhenAsked();
    void TrackPlacement();
    void tPlacementTimer();

    void MeasurePages();
    void BuildUnseen();
    wxSize DesignSize() const;
    void FitRightPanel();
    void PlaceSplitters();
    void Place(const TPlacement& placement);
    void UpdateHints();
    void ShowSelectionStatus();
    void ShowLastChange();
    wxWindow* TopWindow();

    // TMainView.
    void ShowMessage(const std::string& text) override;
    void SetStatus(const std::string& text) override;
    std::unique_ptr<TLongWork> BeginWork(int range) override;
    void SetBusy(bool busy) override;
    void EnableWindow(bool enable) override;
    bool IsWindowVisible() override;
    void MinimiseWindow() override;
    TPlacement NormalPlacement() override { return m_placement; }

    // TTrayView.
    void RestoreWindow() override;
    void RaiseDialog() override { RaiseModalWindow(); }
    void BringToFront() override;
    void StartIcons() override;
    void ShowIcon(const TIconImage& image) override;
    const TMenuItem* ShowMenu(const TMenuItem& menu, TPoint place) override;
    void TrayChanged() override;

    // TListener.
    void ItemsChanged(const TItems&) override;
    void SelectionChanged() override;
    void CurrentChanged() override;
    void PreviewChanged(bool loadPicture) override;
    void SettingsChanged() override;
    void PauseChanged() override;

    std::unique_ptr<TTrayArea> m_toolkitTray; // null where the desktop needs no other
    TMurala m_murala;
    TActionList alMain;
    TActionBinder m_binder;
    TServices m_services;
    TInstanceLink& m_link;
    std::optional<TDoorway> m_way; // until it closes

    std::unique_ptr<TfProgress> fProgress; // while the program starts
    wxPanel* m_client = nullptr;
    wxSplitterWindow* spVertical = nullptr;
    wxSplitterWindow* spHorizontal = nullptr;
    TWallpaperPanel* m_wallpapers = nullptr;
    TPreviewPanel* iPreview = nullptr;
    wxNotebook* pcEffect = nullptr;
    std::vector<TSettingsPage*> m_pages; // of pcEffect
    TAddOnsPage* m_addOnsPage = nullptr;
    wxSize m_pagesSize; // what the largest page needs
    wxGauge* pbMain = nullptr;
    wxStaticText* pStatusText = nullptr;
    wxStaticText* lLastChange = nullptr;
    wxTimer tSelectItem, tLoadPreview, tPreviewUpdate, tSchedule, tRefreshIcons, tIcons, tPlacement,
        tHideAppWindow, tEnd;
    int m_rightWidth = 0, m_previewHeight = 0;
    TPlacement m_placement;
    std::optional<wxBusyCursor> m_busyCursor;
    int m_busyDepth = 0, m_disabledDepth = 0;
    wxWeakRef<wxWindow> m_focusBefore; // of being disabled
    bool m_wasEnabled = true;
    bool m_isStarting = true;
    bool m_wasShown = false, m_wasSettled = false, m_wasPainted = false;
    bool m_isComing = false;      // shown, but not on the screen yet
    bool m_isStartHidden = false; // until the window manager has taken it in
    bool m_isWakePending = false, m_isClosePending = false;
};

} // namespace murala
