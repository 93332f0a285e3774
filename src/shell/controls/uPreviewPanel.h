// Shows one picture in its middle, or a text where there is none.
#pragma once

#include "uBitmap.h"

#include <wx/bitmap.h>
#include <wx/panel.h>

namespace murala
{

class TPreviewPanel : public wxPanel
{
public:
    TPreviewPanel(wxWindow* parent, const wxString& name);

    // The width in device pixels at which a picture of these proportions fills the panel.
    int PictureWidth(TSize proportions) const;
    void ShowPicture(const TBitmap& picture);
    void ShowText(const wxString& text);
    // What the panel shows now.
    const wxBitmap& Picture() const { return m_picture; }
    const wxString& Text() const { return m_text; }

private:
    void OnPaint(wxPaintEvent& event);
    void DrawContent(wxDC& dc);

    wxBitmap m_picture;
    wxString m_text;
};

} // namespace murala
