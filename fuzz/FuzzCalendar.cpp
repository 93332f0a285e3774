#include "uMuCalendar.h"
#include "uRequire.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

using namespace murala;

namespace
{

constexpr int Width = 60, Height = 48;
constexpr TPixel Around = 0x123456;

// Draws a box of known size instead of each text.
struct TBoxText : TTextDrawing {
    TSize Measure(const TMuFont& font, const std::string& text) override
    {
        const int height = FontPixels(font.Size);
        return {static_cast<int>(std::min<std::size_t>(text.size(), 1000)) * height / 2, height};
    }
    void Draw(TBitmap& bitmap, const TRect& clip, int x, int y, const TMuFont& font, TColor color,
              const std::string& text) override
    {
        const TSize size = Measure(font, text);
        const TRect part = VisiblePart({x, y, x + size.Width, y + size.Height}, clip, bitmap);
        for (int row = part.Top; row < part.Bottom; ++row)
            std::fill_n(bitmap.Row(row) + part.Left, part.Width(), color);
    }
};

TCalendarSettings Reread(const TCalendarSettings& settings)
{
    TIniFile file;
    SaveCalendarSettings(file, CalendarSection, settings);
    return LoadCalendarSettings(TIniFile::FromText(file.ToText()), CalendarSection);
}

// A zero byte becomes a blank when it is written.
void CheckSettings(const TCalendarSettings& settings, std::string_view text)
{
    const TCalendarSettings again = Reread(settings);
    Require(again == settings || text.find('\0') != std::string_view::npos,
            "settings are read as they were saved");
    Require(Reread(again) == again, "settings that were saved once do not change any more");
}

// Only the calendar's rectangle may change.
void CheckDrawing(const TMuCalendar& calendar)
{
    TBitmap picture(Width, Height);
    std::fill_n(picture.Row(0), Width * Height, Around);
    calendar.Draw(picture);
    const TArea place = calendar.Place(picture.Size());
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            Require((x >= place.Left && x < place.Right && y >= place.Top && y < place.Bottom) ||
                        picture.Row(y)[x] == Around,
                    "nothing is drawn outside of the calendar");
}

} // namespace

// The first bytes are the date, the rest is the settings' file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TDateTime date = 0;
    if (size < sizeof date)
        return 0;
    std::memcpy(&date, data, sizeof date);
    if (date != date)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + sizeof date,
                                size - sizeof date);
    TBoxText boxes;
    TMuCalendar calendar(boxes, EnglishDateNames(), date);
    calendar.Settings = LoadCalendarSettings(TIniFile::FromText(text), CalendarSection);
    CheckSettings(calendar.Settings, text);
    CheckDrawing(calendar);
    return 0;
}
