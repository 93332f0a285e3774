// The wallpapers: list view, thumbnail view and tool bar, and what the user does in them. While
// there are none, a panel in the place of the views says so.
#pragma once

#include "uActionBinder.h"
#include "uListView.h"
#include "uMurala.h"
#include "uThumbnailView.h"

#include <wx/panel.h>

namespace murala
{

class TEmptyLibrary;

class TWallpaperPanel : public wxPanel, private TListener, private TRows, private TThumbnails
{
public:
    TWallpaperPanel(wxWindow* parent, TMurala& murala, TActionList& actions, TActionBinder& binder);

    // The view that is shown once there are wallpapers.
    TWallpaperView& View();
    // Gives the focus to the view, or to what stands in its place.
    void TakeFocus();
    void EditTitle();
    // Scrolls to the focused row, when the window or the view has just come to the screen.
    void BringFocusIntoView();
    // The width at which no button is cut.
    int ToolBarWidth() const { return tbMain->GetBestSize().x; }
    // Both show what the settings say.
    void ShowViewMode();
    void ShowThumbnailSize();
    // Deletes the selected items' thumbnails with their files; they are made again when they are
    // drawn.
    void RefreshThumbnails();

private:
    void BuildToolBar();
    wxWindow& Shown();
    void ShowOne();
    void BuildEmptyLibrary();
    void UpdateHint();
    void OnKey(wxKeyEvent& event);
    wxPoint KeyMenuPlace();

    // TListener.
    void RowsChanged() override;
    void ItemsChanged(const TItems&) override { View().ShowTexts(); }
    void SelectionChanged() override;
    void CurrentChanged(TCurrentChange) override { View().ShowTexts(); }

    // TRows.
    int Count() const override { return m_murala.Core.List.Count(); }
    std::string Text(int row, TListColumn column) const override;
    bool IsCurrent(int row) const override;
    void UserSelects(const std::vector<int>& rows, int focusedRow) override;
    void UserActivates() override;
    void UserRenames(int row, const std::string& title) override;
    void UserClicksHeader(TListColumn column) override;
    void UserWantsMenu(bool byKey) override;

    // TThumbnails.
    const TBitmap* Thumbnail(int row) override;
    bool MakeNext(const std::vector<int>& rows) override;

    TMurala& m_murala;
    TActionList& m_actions;
    TActionBinder& m_binder;
    wxToolBar* tbMain = nullptr;
    TMuListView* lvWallpaper = nullptr;
    TMuThumbnailView* lvThumbnails = nullptr;
    TEmptyLibrary* pEmptyLibrary = nullptr; // once it is needed
    bool m_isUserSelecting = false;
    TSubscription m_subscription;
};

} // namespace murala
