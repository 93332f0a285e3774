#include "uThumbnailView.h"

#include "uThumbnailCache.h"
#include "uWindowSystem.h"
#include "uWxBitmap.h"
#include "uWxText.h"

#include <algorithm>
#include <utility>

#include <wx/app.h>
#include <wx/dcbuffer.h>
#include <wx/renderer.h>
#include <wx/settings.h>
#include <wx/textctrl.h>

namespace murala
{

namespace
{

// DIPs.
constexpr int CaptionWidth = 96, Margin = 6;
constexpr int CaptionLetters = 12; // so many fit in a larger font, too

// The selection's colour without the focus: half of the highlight stands out from the background
// and leaves the text readable, in light and dark themes.
wxColour UnfocusedHighlight()
{
    const wxColour highlight = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    const wxColour back = wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX);
    const auto mix = [](unsigned a, unsigned b) { return static_cast<unsigned char>((a + b) / 2); };
    return {mix(highlight.Red(), back.Red()), mix(highlight.Green(), back.Green()),
            mix(highlight.Blue(), back.Blue())};
}

} // namespace

TMuThumbnailView::TMuThumbnailView(wxWindow* parent, TRows& rows, TThumbnails& thumbnails,
                                   const wxString& name)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxVSCROLL | wxWANTS_CHARS | wxBORDER_THEME, name),
      m_rows(rows), m_thumbnails(thumbnails)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetSize(tsNormal);
    BindEvents();
}

void TMuThumbnailView::BindEvents()
{
    Bind(wxEVT_PAINT, &TMuThumbnailView::OnPaint, this);
    Bind(wxEVT_IDLE, &TMuThumbnailView::OnIdle, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        Measure();
    });
    Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
        event.Skip();
        CallAfter(&TMuThumbnailView::Measure);
    });
    Bind(wxEVT_LEFT_DOWN, &TMuThumbnailView::OnClick, this);
    Bind(wxEVT_RIGHT_DOWN, &TMuThumbnailView::OnRightClick, this);
    Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
        if (RowAt(event.GetPosition()) >= 0)
            m_rows.UserActivates();
    });
    Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
        m_rows.UserWantsMenu(event.GetPosition() == wxDefaultPosition);
    });
    Bind(wxEVT_KEY_DOWN, &TMuThumbnailView::OnKey, this);
    Bind(wxEVT_CHAR, &TMuThumbnailView::OnCharacter, this);
    const auto refresh = [this](wxFocusEvent& event) {
        event.Skip();
        Refresh();
    };
    Bind(wxEVT_SET_FOCUS, refresh);
    Bind(wxEVT_KILL_FOCUS, refresh);
}

void TMuThumbnailView::SetSize(TThumbnailSize size)
{
    const TSize pixels = ThumbnailDisplaySizes[std::clamp<int>(size, tsSmall, tsLarge)];
    m_picture = FromDIP(wxSize(pixels.Width, pixels.Height));
    Measure();
    if (m_selection.Focused() >= 0)
        BringIntoView(m_selection.Focused());
}

void TMuThumbnailView::Measure()
{
    const int margin = FromDIP(Margin);
    const int caption = std::max(FromDIP(CaptionWidth), CaptionLetters * GetCharWidth());
    m_cell = wxSize(std::max(m_picture.x, caption) + 2 * margin,
                    m_picture.y + GetCharHeight() + 3 * margin);
    const int lines = (m_rows.Count() + Columns() - 1) / Columns();
    SetScrollRate(0, std::max(1, m_cell.y / 4));
    SetVirtualSize(Columns() * m_cell.x, lines * m_cell.y);
    Refresh();
}

int TMuThumbnailView::Columns() const
{
    return std::max(1, GetClientSize().x / std::max(1, m_cell.x));
}

wxRect TMuThumbnailView::CellRect(int row) const
{
    const wxPoint place(row % Columns() * m_cell.x, row / Columns() * m_cell.y);
    return {CalcScrolledPosition(place), m_cell};
}

int TMuThumbnailView::RowAt(const wxPoint& point) const
{
    const wxPoint place = CalcUnscrolledPosition(point);
    const int column = place.x / m_cell.x;
    const int row = place.y / m_cell.y * Columns() + column;
    return place.x >= 0 && place.y >= 0 && column < Columns() && row < m_rows.Count() ? row : -1;
}

std::vector<int> TMuThumbnailView::VisibleRows() const
{
    const int top = CalcUnscrolledPosition(wxPoint(0, 0)).y;
    const int first = top / m_cell.y * Columns();
    const int last = ((top + GetClientSize().y - 1) / m_cell.y + 1) * Columns();
    std::vector<int> rows;
    for (int row = first; row < std::min(last, m_rows.Count()); ++row)
        rows.push_back(row);
    return rows;
}

void TMuThumbnailView::ShowRows()
{
    EndEdit(false);
    m_selection.Resize(m_rows.Count());
    Measure();
}

void TMuThumbnailView::ShowSelection(const std::vector<int>& rows, int focusedRow)
{
    if (m_selection.Count() != m_rows.Count())
        ShowRows();
    m_selection.Set(rows, focusedRow);
    Refresh();
    TellAccessibility();
}

void TMuThumbnailView::BringIntoView(int row)
{
    const wxRect cell = CellRect(row);
    int unit = 1;
    GetScrollPixelsPerUnit(nullptr, &unit);
    const int height = GetClientSize().y;
    const int beyond = cell.y < 0 ? cell.y : std::max(0, cell.GetBottom() + 1 - height);
    if (beyond == 0)
        return;
    const int top = GetViewStart().y * unit + beyond;
    Scroll(-1, beyond > 0 ? (top + unit - 1) / unit : top / unit);
}

// GTK complains when a hidden control is moved while the window scrolls.
void TMuThumbnailView::ScrollWindow(int dx, int dy, const wxRect* area)
{
    if (m_endedEditor)
        Refresh();
    else
        wxScrolledCanvas::ScrollWindow(dx, dy, area);
}

void TMuThumbnailView::OnPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    const wxRect exposed = GetUpdateRegion().GetBox();
    dc.SetClippingRegion(exposed);
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX));
    dc.Clear();
    if (m_selection.Count() != m_rows.Count())
        return; // the list changed, and ShowRows is still to come
    for (const int row : VisibleRows())
        if (exposed.Intersects(CellRect(row)))
            DrawCell(dc, row);
}

void TMuThumbnailView::DrawCell(wxDC& dc, int row)
{
    const wxRect cell = CellRect(row).Deflate(1);
    const bool isSelected = m_selection.IsSelected(row);
    if (isSelected) {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(HasFocus() ? wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)
                               : UnfocusedHighlight());
        dc.DrawRectangle(cell);
    }
    const int margin = FromDIP(Margin);
    const wxPoint corner(cell.x + (cell.width - m_picture.x) / 2, cell.y + margin);
    DrawPicture(dc, wxRect(corner, m_picture), m_thumbnails.Thumbnail(row));
    dc.SetFont(m_rows.IsCurrent(row) ? GetFont().Bold() : GetFont());
    dc.SetTextForeground(wxSystemSettings::GetColour(
        isSelected && HasFocus() ? wxSYS_COLOUR_HIGHLIGHTTEXT : wxSYS_COLOUR_LISTBOXTEXT));
    const wxRect caption(cell.x + margin / 2, corner.y + m_picture.y + margin, cell.width - margin,
                         GetCharHeight());
    dc.DrawLabel(wxControl::Ellipsize(ToWx(m_rows.Text(row, lcTitle)), dc, wxELLIPSIZE_END,
                                      caption.width, wxELLIPSIZE_FLAGS_NONE),
                 caption, wxALIGN_CENTER);
    if (row == m_selection.Focused() && HasFocus())
        wxRendererNative::Get().DrawFocusRect(this, dc, cell);
}

void TMuThumbnailView::DrawPicture(wxDC& dc, const wxRect& frame, const TBitmap* picture)
{
    if (picture == nullptr) {
        dc.SetPen(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.DrawRectangle(frame);
        return;
    }
    const double scale = GetContentScaleFactor();
    const wxSize pixels = frame.GetSize() * scale;
    dc.DrawBitmap(wxBitmap(ToWxImage(*picture).Scale(pixels.x, pixels.y, wxIMAGE_QUALITY_BILINEAR),
                           wxBITMAP_SCREEN_DEPTH, scale),
                  frame.GetPosition());
}

void TMuThumbnailView::OnIdle(wxIdleEvent& event)
{
    event.Skip();
    if (m_thumbnails.MakeNext(IsShownOnScreen() ? VisibleRows() : std::vector<int>()))
        event.RequestMore();
}

void TMuThumbnailView::Select(int row, TSelecting how)
{
    m_selection.Select(row, how);
    BringIntoView(row);
    Refresh();
    TellAccessibility();
    m_rows.UserSelects(m_selection.Rows(), row);
}

void TMuThumbnailView::OnClick(wxMouseEvent& event)
{
    SetFocus();
    if (const int row = RowAt(event.GetPosition()); row >= 0)
        return Select(row, event.ShiftDown() ? TSelecting::Range
                           : event.CmdDown() ? TSelecting::Toggle
                                             : TSelecting::Only);
    m_selection.SelectNone();
    Refresh();
    m_rows.UserSelects({}, m_selection.Focused());
}

// The menu applies to the cell under the pointer.
void TMuThumbnailView::OnRightClick(wxMouseEvent& event)
{
    event.Skip();
    SetFocus();
    if (const int row = RowAt(event.GetPosition()); row >= 0 && !m_selection.IsSelected(row))
        Select(row, TSelecting::Only);
}

int TMuThumbnailView::RowAfterKey(int key) const
{
    const int from = std::max(m_selection.Focused(), 0), last = m_rows.Count() - 1;
    const int page = std::max(1, GetClientSize().y / m_cell.y) * Columns();
    const std::pair<int, int> moves[] = {
        {WXK_LEFT, from - 1},
        {WXK_RIGHT, from + 1},
        {WXK_UP, from - Columns()},
        {WXK_DOWN, from + Columns()},
        {WXK_PAGEUP, from - page},
        {WXK_PAGEDOWN, from + page},
        {WXK_HOME, 0},
        {WXK_END, last},
    };
    for (const auto& [moving, row] : moves) {
        if (key != moving)
            continue;
        // Up in the first line and Down in the last do nothing; Page Up, Page Down, Home and End
        // stop at the first and the last cell.
        const bool isStep = key == WXK_UP || key == WXK_DOWN;
        return isStep && (row < 0 || row > last) ? from : std::clamp(row, 0, last);
    }
    return -1;
}

void TMuThumbnailView::OnKey(wxKeyEvent& event)
{
    const int row = m_rows.Count() > 0 && !event.AltDown() ? RowAfterKey(event.GetKeyCode()) : -1;
    if (row >= 0)
        Select(row, event.ShiftDown() ? TSelecting::Range
                    : event.CmdDown() ? TSelecting::Focus
                                      : TSelecting::Only);
    else if (event.GetKeyCode() == WXK_SPACE && event.CmdDown() && m_selection.Focused() >= 0)
        Select(m_selection.Focused(), TSelecting::Toggle);
    else if (event.GetKeyCode() == WXK_SPACE && !event.HasModifiers() && !m_typeAhead.IsTyping() &&
             m_selection.Focused() >= 0)
        Select(m_selection.Focused(), TSelecting::Only);
    else if (event.GetKeyCode() == WXK_TAB && !event.CmdDown())
        Navigate(event.ShiftDown() ? 0 : wxNavigationKeyEvent::IsForward);
    else if ((event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) &&
             event.GetModifiers() == wxMOD_NONE)
        m_rows.UserActivates();
    else
        event.Skip();
}

void TMuThumbnailView::OnCharacter(wxKeyEvent& event)
{
    if (!m_typeAhead.IsLetter(event))
        return event.Skip();
    if (const int row = m_typeAhead.Find(event, m_rows, m_selection.Focused()); row >= 0)
        Select(row, TSelecting::Only);
}

void TMuThumbnailView::EditTitle(int row)
{
    EndEdit(true);
    BringIntoView(row);
    const wxRect cell = CellRect(row);
    m_editedRow = row;
    auto* editor = new wxTextCtrl(this, wxID_ANY, ToWx(m_rows.Text(row, lcTitle)),
                                  wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    m_editor = editor;
    const int height = editor->GetBestSize().y;
    editor->wxWindow::SetSize(cell.x, cell.GetBottom() - height, cell.width, height);
    editor->SelectAll();
    editor->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { EndEdit(true); });
    editor->Bind(wxEVT_KILL_FOCUS, [this, editor](wxFocusEvent& event) {
        event.Skip();
        // An edit that is over has nothing to rename.
        if (m_editor == editor)
            EndEdit(true);
    });
    editor->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_ESCAPE)
            EndEdit(false);
        else
            event.Skip();
    });
    editor->SetFocus(); // the edit may end here already
}

void TMuThumbnailView::EndEdit(bool isAccepted)
{
    wxTextCtrl* editor = std::exchange(m_editor, nullptr);
    if (editor == nullptr)
        return;
    const wxString title = wxString(editor->GetValue()).Trim().Trim(false);
    const bool hadFocus = editor->HasFocus();
    editor->Hide();
    m_endedEditor = editor;
    wxTheApp->ScheduleForDestruction(editor); // this code may be called by the editor itself
    if (hadFocus)
        SetFocus();
    if (isAccepted && !title.empty())
        m_rows.UserRenames(m_editedRow, title.utf8_string());
}

void TMuThumbnailView::TellAccessibility()
{
    const int row = m_selection.Focused();
    if (row < 0 || row >= m_rows.Count())
        return;
    const wxString state = m_selection.IsSelected(row) ? "selected" : "not selected";
    const wxString current = m_rows.IsCurrent(row) ? ", on the desktop" : "";
    SetAccessibleText(*this, ToWx(m_rows.Text(row, lcTitle)),
                      wxString::Format("%s%s, %d of %d", state, current, row + 1, m_rows.Count()));
}

} // namespace murala
