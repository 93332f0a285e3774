#include "uPreviewPanel.h"

#include "uWindowSystem.h"
#include "uWxBitmap.h"

#include <algorithm>

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/renderer.h>
#include <wx/settings.h>

namespace murala
{

namespace
{

// Breaks the text into lines that fit; a file name without blanks is broken anywhere.
wxString WrapText(wxDC& dc, const wxString& text, int width)
{
    wxString lines, line;
    for (const wxUniChar c : text) {
        if (c != '\n' && dc.GetTextExtent(line + c).x <= width) {
            line += c;
            continue;
        }
        const std::size_t blank = c == '\n' ? wxString::npos : line.rfind(' ');
        const wxString rest = blank == wxString::npos ? wxString() : line.substr(blank + 1);
        lines += line.substr(0, blank) + "\n";
        line = c == '\n' ? rest : rest + c;
    }
    return lines + line;
}

} // namespace

TPreviewPanel::TPreviewPanel(wxWindow* parent, const wxString& name)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE, name)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetAccessibleName(*this, "Preview");
    Bind(wxEVT_PAINT, &TPreviewPanel::OnPaint, this);
    const auto refresh = [this](wxFocusEvent& event) {
        event.Skip();
        Refresh();
    };
    Bind(wxEVT_SET_FOCUS, refresh);
    Bind(wxEVT_KILL_FOCUS, refresh);
}

int TPreviewPanel::PictureWidth(TSize proportions) const
{
    const wxSize area = GetClientSize();
    if (proportions.Width < 1 || proportions.Height < 1)
        return 0;
    const double width = std::min<double>(area.x, static_cast<double>(area.y) * proportions.Width /
                                                      proportions.Height);
    return static_cast<int>(width * GetContentScaleFactor());
}

void TPreviewPanel::ShowPicture(const TBitmap& picture)
{
    m_picture = wxBitmap(ToWxImage(picture), wxBITMAP_SCREEN_DEPTH, GetContentScaleFactor());
    m_text.clear();
    Refresh();
}

void TPreviewPanel::ShowText(const wxString& text)
{
    m_picture = wxBitmap();
    m_text = text;
    m_text.Replace("\r\n", "\n");
    Refresh();
}

void TPreviewPanel::OnPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    dc.Clear();
    DrawContent(dc);
    if (HasFocus()) // shows that a key would open the menu of this panel
        wxRendererNative::Get().DrawFocusRect(this, dc, wxRect(GetClientSize()).Deflate(1));
}

void TPreviewPanel::DrawContent(wxDC& dc)
{
    const wxSize area = GetClientSize();
    if (m_picture.IsOk()) {
        const wxSize size(m_picture.GetLogicalSize());
        dc.DrawBitmap(m_picture, (area.x - size.x) / 2, (area.y - size.y) / 2);
        return;
    }
    dc.SetFont(GetFont());
    dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    const int margin = GetCharWidth();
    dc.DrawLabel(WrapText(dc, m_text, area.x - 2 * margin), wxRect(area).Deflate(margin),
                 wxALIGN_CENTER);
}

} // namespace murala
