// The month calendar that is drawn onto a picture.
#pragma once

#include "uBitmap.h"
#include "uCalendarLayout.h"
#include "uCalendarSettings.h"
#include "uDateFormat.h"
#include "uTextDrawing.h"

#include <string>

namespace murala
{

class TMuCalendar
{
public:
    // `text` must live longer.
    TMuCalendar(TTextDrawing& text, TDateNames names, TDateTime now);

    TCalendarSettings Settings;
    TDateTime Date;  // its month is shown, its day is marked
    TBitmap Picture; // what Render draws over

    // "mucalendar.ini" in the program folder. A missing file gives the defaults. Both throw
    // EFileError; a file that cannot be read is not written, either.
    void LoadFromFile(const std::string& programFolder);
    void SaveToFile(const std::string& programFolder) const;

    // Draws onto the picture itself.
    void Draw(TBitmap& picture) const;

    // Draws over Picture and puts the result into the target, stretched to the target's size; an
    // empty target gets Picture's size.
    void Render(TBitmap& target) const;

    // The top-left corner in a picture of this size; right and bottom by the width and height of
    // the settings.
    TArea Place(TSize picture) const;

private:
    TTextDrawing& m_text;
    TDateNames m_names;
};

} // namespace murala
