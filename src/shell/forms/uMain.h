// The main window.
#pragma once

#include "uActionBinder.h"
#include "uInstanceLink.h"
#include "uListView.h"
#include "uMurala.h"
#include "uPreviewPanel.h"
#include "uSettingsPages.h"

#include <optional>

#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/splitter.h>
#include <wx/timer.h>

namespace murala
{

class TfMain : public wxFrame, private TMainView
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

private:
    // Building, in this order.
    void BindWallpaperActions();
    void BindDisplayModeActions();
    void BindWindowActions();
    void BindSystemActions();
    void BuildMenuBar();
    void BuildClient();
    wxWindow* BuildListPanel(wxWindow* parent);
    wxWindow* BuildRightPanel(wxWindow* parent);
    wxWindow* BuildBottomPanel(wxWindow* parent);
    void BindEvents();
    void BindSplitters();

    // Actions.
    int RunModal(wxDialog& dialog);
    void aAddExecute();
    void aDesktopColorExecute();
    void aAboutExecute();
    void aScheduleExecute();
    void SetPreviewSize(TPreviewSize size);

    // Events.
    void lvWallpaperKeyDown(wxListEvent& event);
    void lvWallpaperEndLabelEdit(wxListEvent& event);
    void lvWallpaperContextMenu(wxContextMenuEvent& event);
    void lvWallpaperSelectItem(wxListEvent& event);
    void lvWallpaperSelect();
    void tSelectItemTimer();
    void tPreviewUpdateTimer();
    void tScheduleTimer();
    void StartSchedule();
    void FormDropFiles(wxDropFilesEvent& event);
    void WakeUp();
    void FormClose(wxCloseEvent& event);
    void TrackPlacement();
    void tPlacementTimer();

    wxSize DesignSize() const;
    void PlaceSplitters();
    void Place(const TPlacement& placement);
    void UpdateListHint();
    std::string CellText(int row, int column) const;

    // TMainView.
    void ShowMessage(const std::string& text) override;
    void SetStatus(const std::string& text) override;
    void ShowProgress(int position, int range) override;
    void SetBusy(bool busy) override;
    int SelectedRow() override;
    std::vector<int> SelectedRows() override;
    void SelectRow(int row) override;
    void RowsChanged() override;
    void RowChanged(int row) override;
    void ItemChanged() override;
    void PreviewChanged(bool loadPicture) override;
    void WallpaperChanged() override;
    bool IsWindowVisible() override;
    void EnableWindow(bool enable) override { Enable(enable); }
    void MinimiseWindow() override { Iconize(); }
    TPlacement NormalPlacement() override { return m_placement; }

    TMurala m_murala;
    TActionList alMain;
    TActionBinder m_binder;
    TServices m_services;
    TInstanceLink& m_link;

    wxSplitterWindow* spVertical = nullptr;
    wxSplitterWindow* spHorizontal = nullptr;
    wxToolBar* tbMain = nullptr;
    TMuListView* lvWallpaper = nullptr;
    TPreviewPanel* iPreview = nullptr;
    wxNotebook* pcEffect = nullptr;
    std::vector<TSettingsPage*> m_pages;
    wxSize m_pagesSize; // what the largest page needs
    wxGauge* pbMain = nullptr;
    wxStaticText* pStatusText = nullptr;
    wxTimer tSelectItem, tPreviewUpdate, tSchedule, tRefreshIcons, tPlacement;
    int m_rightWidth = 0, m_previewHeight = 0;
    bool m_isSelectionPending = false;
    TPlacement m_placement;
    std::optional<wxBusyCursor> m_busyCursor;
    int m_busyDepth = 0;
};

} // namespace murala
