// Where the calendar lies in a picture that is shown larger or smaller than it is, and where it
// goes when it is dragged there.
#pragma once

#include "uCalendarLayout.h"
#include "uCalendarSettings.h"

namespace murala
{

// The largest size in the picture's proportions with a margin around it; the picture's own when it
// has no pixels.
TSize FittedSize(TSize client, TSize picture);

// Measures in the view are pixels of the image as it is shown, from its top-left corner.
class TCalendarView
{
public:
    // `image` is the size in which the picture is shown.
    TCalendarView(TSize image, TSize picture, const TCalendarSettings& settings);

    TRect Outline() const { return m_outline; }
    bool IsOverCalendar(int x, int y) const;

    // The outline when the calendar was grabbed so far from its corner and the mouse is at (x, y).
    // It does not leave the image.
    TRect Dragged(int x, int y, int grabX, int grabY) const;
    // The percentages for an outline that was dropped here.
    struct TPlace {
        int X, Y;
    };
    TPlace Dropped(const TRect& outline) const;

private:
    TSize m_image, m_picture;
    TArea m_calendar; // in the picture
    TRect m_outline;
    TPlace m_present;
};

} // namespace murala
