// Shows a gradient whose two colours can be dragged: up makes the colour of the nearer end lighter,
// down makes it darker.
#pragma once

#include "uGradientShade.h"

#include <functional>

#include <wx/bitmap.h>
#include <wx/panel.h>

namespace murala
{

class TGradientPanel : public wxPanel
{
public:
    // Runs when the user has dragged a colour.
    std::function<void()> OnChange;

    TGradientPanel(wxWindow* parent, const wxString& name);
    ~TGradientPanel() override { EndDrag(); } // a key may close the dialog during a drag

    TColor StartColor() const { return m_start; }
    TColor EndColor() const { return m_end; }
    TGradientDirection Direction() const { return m_direction; }
    void SetStartColor(TColor color);
    void SetEndColor(TColor color);
    void SetDirection(TGradientDirection direction);

private:
    void PaintPicture();
    void OnPaint(wxPaintEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void EndDrag();

    TColor m_start = 0, m_end = 0;
    TGradientDirection m_direction = TGradientDirection::Vertical;
    wxBitmap m_picture;
    TColor* m_dragged = nullptr; // the colour that is being dragged
    TColor m_colorBefore = 0;
    int m_dragStart = 0; // y
};

} // namespace murala
