#include "uGradientPanel.h"

#include "uWxBitmap.h"

#include <algorithm>

#include <wx/dcbuffer.h>

namespace murala
{

namespace
{

// Adds `by` to every channel and clamps it.
TColor Lightened(TColor color, int by)
{
    TColor result = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const int channel = static_cast<int>(color >> shift & 0xFFU) + by;
        result |= static_cast<TColor>(std::clamp(channel, 0, 255)) << shift;
    }
    return result;
}

} // namespace

TGradientPanel::TGradientPanel(wxWindow* parent, const wxString& name)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_SIMPLE, name)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_container.DisableSelfFocus(); // the sliders beside it are for the keyboard
    SetCursor(wxCursor(wxCURSOR_HAND));
    SetToolTip("Drag up to make the nearer colour lighter, down to make it darker");
    Bind(wxEVT_PAINT, &TGradientPanel::OnPaint, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        PaintPicture();
    });
    Bind(wxEVT_LEFT_DOWN, &TGradientPanel::OnLeftDown, this);
    Bind(wxEVT_MOTION, &TGradientPanel::OnMotion, this);
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { EndDrag(); });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { m_dragged = nullptr; });
}

void TGradientPanel::SetStartColor(TColor color)
{
    m_start = color;
    PaintPicture();
}

void TGradientPanel::SetEndColor(TColor color)
{
    m_end = color;
    PaintPicture();
}

void TGradientPanel::SetDirection(TGradientDirection direction)
{
    m_direction = direction;
    PaintPicture();
}

void TGradientPanel::PaintPicture()
{
    const wxSize size = GetClientSize();
    if (size.x < 1 || size.y < 1)
        return;
    TBitmap picture(size.x, size.y);
    TGradientShade(m_start, m_end).Paint(picture, m_direction);
    m_picture = wxBitmap(ToWxImage(picture));
    Refresh();
}

void TGradientPanel::OnPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    if (m_picture.IsOk())
        dc.DrawBitmap(m_picture, 0, 0);
}

void TGradientPanel::OnLeftDown(wxMouseEvent& event)
{
    const wxSize size = GetClientSize();
    const bool isStart = m_direction == TGradientDirection::Vertical ? event.GetY() < size.y / 2
                                                                     : event.GetX() < size.x / 2;
    m_dragged = isStart ? &m_start : &m_end;
    m_colorBefore = *m_dragged;
    m_dragStart = event.GetY();
    CaptureMouse();
}

void TGradientPanel::OnMotion(wxMouseEvent& event)
{
    if (m_dragged == nullptr)
        return;
    // Dragging over the panel's whole height goes from black to white.
    const int height = std::max(GetClientSize().y, 1);
    *m_dragged = Lightened(m_colorBefore, (m_dragStart - event.GetY()) * 255 / height);
    PaintPicture();
    if (OnChange)
        OnChange();
}

void TGradientPanel::EndDrag()
{
    m_dragged = nullptr;
    if (HasCapture())
        ReleaseMouse();
}

} // namespace murala
