#include "uCalendarImage.h"

#include "uCompose.h"
#include "uWxBitmap.h"

#include <algorithm>
#include <utility>

#include <wx/dcbuffer.h>

namespace murala
{

namespace
{

constexpr int OutlineWidth = 2;

TBitmap Part(const TBitmap& bitmap, const wxRect& rect)
{
    TBitmap part(rect.width, rect.height);
    for (int y = 0; y < rect.height; ++y)
        std::copy_n(bitmap.Row(rect.y + y) + rect.x, rect.width, part.Row(y));
    return part;
}

} // namespace

TCalendarImage::TCalendarImage(wxWindow* parent, const wxString& name)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE, name)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_container.DisableSelfFocus(); // the sliders beside it are for the keyboard
    Bind(wxEVT_PAINT, &TCalendarImage::OnPaint, this);
    Bind(wxEVT_LEFT_DOWN, &TCalendarImage::OnLeftDown, this);
    Bind(wxEVT_MOTION, &TCalendarImage::OnMotion, this);
    Bind(wxEVT_LEFT_UP, &TCalendarImage::OnLeftUp, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { HideOutline(); });
}

// A key may close the window during a drag.
TCalendarImage::~TCalendarImage()
{
    if (HasCapture())
        ReleaseMouse();
}

void TCalendarImage::ShowPicture(TBitmap picture, const TCalendarSettings& settings, TSize size)
{
    m_picture = std::move(picture);
    m_settings = settings;
    ShowSize(size);
}

void TCalendarImage::ShowSize(TSize size)
{
    m_size = size;
    m_shown = TBitmap();
    if (size != m_picture.Size()) {
        m_shown = m_picture.Copy();
        ResizeBitmap(m_shown, size.Width, size.Height);
    }
    SetMinSize(wxSize(size.Width, size.Height));
    SetSize(wxSize(size.Width, size.Height));
    Refresh();
}

void TCalendarImage::OnPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    const TBitmap& shown = m_shown.Width() > 0 ? m_shown : m_picture;
    // Draws only the visible part: the whole picture takes a while.
    const wxRect visible =
        GetUpdateRegion().GetBox().Intersect(wxRect(0, 0, shown.Width(), shown.Height()));
    if (!visible.IsEmpty())
        dc.DrawBitmap(wxBitmap(ToWxImage(Part(shown, visible))), visible.GetPosition());
    if (!bDrag)
        return;
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    for (int line = 0; line < 2 * OutlineWidth; ++line) {
        // A light and a dark line: one of them is seen on any picture.
        dc.SetPen(line < OutlineWidth ? *wxWHITE_PEN : *wxBLACK_PEN);
        dc.DrawRectangle(
            wxRect(bDrag->Left, bDrag->Top, bDrag->Width(), bDrag->Height()).Deflate(line));
    }
}

void TCalendarImage::OnLeftDown(wxMouseEvent& event)
{
    event.Skip();
    const TCalendarView view = View();
    if (!view.IsOverCalendar(event.GetX(), event.GetY()))
        return;
    const TRect outline = view.Outline();
    m_grabX = event.GetX() - outline.Left;
    m_grabY = event.GetY() - outline.Top;
    ShowOutline(outline);
    CaptureMouse();
}

void TCalendarImage::OnMotion(wxMouseEvent& event)
{
    if (bDrag)
        return ShowOutline(View().Dragged(event.GetX(), event.GetY(), m_grabX, m_grabY));
    const bool isOver = View().IsOverCalendar(event.GetX(), event.GetY());
    SetCursor(isOver ? wxCursor(wxCURSOR_SIZING) : wxNullCursor);
    const wxString hint = isOver ? "Click and drag the calendar" : "";
    if (GetToolTipText() != hint)
        SetToolTip(hint);
}

void TCalendarImage::OnLeftUp(wxMouseEvent&)
{
    if (!bDrag)
        return;
    const TCalendarView::TPlace place = View().Dropped(*bDrag);
    HideOutline();
    if (HasCapture())
        ReleaseMouse();
    SetCursor(wxNullCursor);
    if (OnDropped)
        OnDropped(place);
}

void TCalendarImage::ShowOutline(const TRect& outline)
{
    if (bDrag)
        RefreshOutline();
    bDrag = outline;
    RefreshOutline();
}

void TCalendarImage::HideOutline()
{
    if (!bDrag)
        return;
    RefreshOutline();
    bDrag.reset();
}

// Refreshes the four sides only.
void TCalendarImage::RefreshOutline()
{
    const wxRect box(bDrag->Left, bDrag->Top, bDrag->Width(), bDrag->Height());
    const int line = 2 * OutlineWidth;
    for (const wxRect& side : {wxRect(box.x, box.y, box.width, line),
                               wxRect(box.x, box.GetBottom() - line + 1, box.width, line),
                               wxRect(box.x, box.y, line, box.height),
                               wxRect(box.GetRight() - line + 1, box.y, line, box.height)})
        RefreshRect(side);
}

} // namespace murala
