// Shows the picture with its calendar, which can be dragged.
#pragma once

#include "uBitmap.h"
#include "uCalendarView.h"

#include <functional>
#include <optional>

#include <wx/panel.h>

namespace murala
{

class TCalendarImage : public wxPanel
{
public:
    std::function<void(TCalendarView::TPlace place)> OnDropped;

    TCalendarImage(wxWindow* parent, const wxString& name);
    ~TCalendarImage() override;

    // Shows the picture with its calendar in that size.
    void ShowPicture(TBitmap picture, const TCalendarSettings& settings, TSize size);
    // The calendar has another size or place: it can be grabbed there, but is not drawn anew yet.
    void SetSettings(const TCalendarSettings& settings) { m_settings = settings; }
    // Shows the same picture in another size.
    void ShowSize(TSize size);
    const TBitmap& Picture() const { return m_picture; }

private:
    void OnPaint(wxPaintEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnLeftUp(wxMouseEvent& event);
    void ShowOutline(const TRect& outline);
    void HideOutline();
    void RefreshOutline();
    TCalendarView View() const { return {m_size, m_picture.Size(), m_settings}; }

    TBitmap m_picture;
    TBitmap m_shown; // the scaled picture; empty when it is not scaled
    TCalendarSettings m_settings;
    TSize m_size;
    std::optional<TRect> bDrag; // the outline while the calendar is dragged
    int m_grabX = 0, m_grabY = 0;
};

} // namespace murala
