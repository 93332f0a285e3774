// The wallpaper list as a report: asks for the texts of the rows it shows, so that its length costs
// nothing.
#pragma once

#include "uWallpaperView.h"

#include <wx/listctrl.h>

namespace murala
{

class TMuListView : public wxListView, public TWallpaperView
{
public:
    TMuListView(wxWindow* parent, TRows& rows, const wxString& name);

    // The arrow in the header.
    void ShowOrder(TListColumn column, bool ascending) { ShowSortIndicator(column, ascending); }

    wxWindow& Window() override { return *this; }
    void ShowRows() override;
    void ShowTexts() override { Refresh(); }
    void ShowSelection(const std::vector<int>& rows, int focusedRow) override;
    void TellSelection() override;
    void EditTitle(int row) override { EditLabel(row); }

    int FocusedRow() const;
    std::vector<int> SelectedRows() const;

private:
    wxString OnGetItemText(long row, long column) const override;
    wxItemAttr* OnGetItemAttr(long row) const override;
    void BindEvents();
    void SelectionEvent();

    TRows& m_rows;
    bool m_isSelecting = false;        // the program, not the user
    bool m_isSelectionPending = false; // of the user
    mutable wxItemAttr m_currentAttr;
};

} // namespace murala
