// The wallpapers as pictures with their titles below, in rows from left to right. Only the pictures
// on the screen are made, in the toolkit's idle time.
#pragma once

#include "uRowSelection.h"
#include "uSettings.h"
#include "uTypeAhead.h"
#include "uWallpaperView.h"

#include "uBitmap.h"

#include <wx/scrolwin.h>
#include <wx/timer.h>
#include <wx/weakref.h>

class wxTextCtrl;

namespace murala
{

// Where the pictures come from.
class TThumbnails
{
public:
    virtual ~TThumbnails() = default;
    // Null while the picture is not made.
    virtual const TBitmap* Thumbnail(int row) = 0;
    // Makes one step of the missing pictures of these rows. Returns whether there is more to do.
    virtual bool MakeNext(const std::vector<int>& rows) = 0;
};

class TMuThumbnailView final : public wxScrolledCanvas, public TWallpaperView
{
public:
    TMuThumbnailView(wxWindow* parent, TRows& rows, TThumbnails& thumbnails, const wxString& name);
    ~TMuThumbnailView() override { SetEvtHandlerEnabled(false); }

    void SetSize(TThumbnailSize size);

    wxWindow& Window() override { return *this; }
    void ShowRows() override;
    void ShowTexts() override { Refresh(); }
    void ShowPicture(int row) { RefreshRect(CellRect(row), false); }
    void ShowSelection(const std::vector<int>& rows, int focusedRow) override;
    void TellSelection() override {}
    void BringIntoView(int row) override;
    void EditTitle(int row) override;
    wxRect RowRect(int row) const override { return CellRect(row); }
    bool IsEditing() const override { return m_editor != nullptr; }

    // The whole cell's rectangle in the window.
    wxRect CellRect(int row) const;
    int RowAt(const wxPoint& point) const; // -1: none
    std::vector<int> VisibleRows() const;

private:
    using wxScrolledCanvas::SetSize;

    void ScrollWindow(int dx, int dy, const wxRect* area) override;
    void BindEvents();
    void Measure();
    int Columns() const;
    void OnPaint(wxPaintEvent& event);
    void DrawCell(wxDC& dc, int row);
    void DrawPicture(wxDC& dc, const wxRect& frame, const TBitmap* picture);
    void OnIdle(wxIdleEvent& event);
    void OnClick(wxMouseEvent& event);
    void OnRightClick(wxMouseEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnCharacter(wxKeyEvent& event);
    int RowAfterKey(int key) const; // -1: not a key that moves
    void Select(int row, TSelecting how);
    void EndEdit(bool isAccepted);
    void TellAccessibility();

    TRows& m_rows;
    TThumbnails& m_thumbnails;
    TRowSelection m_selection;
    wxSize m_picture, m_cell;
    wxTextCtrl* m_editor = nullptr;
    wxWeakRef<wxWindow> m_endedEditor; // until it is deleted
    int m_editedRow = -1;
    TTypeAhead m_typeAhead;
};

} // namespace murala
