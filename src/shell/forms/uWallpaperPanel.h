// The wallpapers: the list view with its tool bar, and what the user does in it.
#pragma once

#include "uActionBinder.h"
#include "uListView.h"
#include "uMurala.h"

#include <wx/panel.h>

namespace murala
{

class TWallpaperPanel : public wxPanel, private TListener, private TRows
{
public:
    TWallpaperPanel(wxWindow* parent, TMurala& murala, TActionList& actions, TActionBinder& binder);
    ~TWallpaperPanel() override { m_murala.Core.Listeners.Remove(*this); }

    TWallpaperView& View() { return *lvWallpaper; }
    void EditTitle();

private:
    void BuildToolBar(TActionBinder& binder);
    void UpdateHint();

    // TListener.
    void RowsChanged() override;
    void ItemsChanged(const TItems&) override { View().ShowTexts(); }
    void SelectionChanged() override;
    void CurrentChanged() override { View().ShowTexts(); }

    // TRows.
    int Count() const override { return m_murala.Core.List.Count(); }
    std::string Text(int row, TListColumn column) const override;
    bool IsCurrent(int row) const override;
    void UserSelects(const std::vector<int>& rows, int focusedRow) override;
    void UserActivates() override;
    void UserRenames(int row, const std::string& title) override;
    void UserClicksHeader(TListColumn column) override;

    TMurala& m_murala;
    TActionList& m_actions;
    wxToolBar* tbMain = nullptr;
    TMuListView* lvWallpaper = nullptr;
};

} // namespace murala
