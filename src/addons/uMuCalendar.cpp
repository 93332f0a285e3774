#include "uMuCalendar.h"

#include "uCompose.h"
#include "uPath.h"
#include "uText.h"
#include "uTint.h"

#include <algorithm>
#include <cstdlib>

namespace murala
{

namespace
{

constexpr TColor OtherMonthColor = 0x808080;
constexpr TColor TodayColor = 0x0000FF; // red
// A longer line is wider than any calendar anyhow, and the time to measure it grows with the square
// of its length.
constexpr std::size_t MostTitleLetters = 1000;
constexpr std::int64_t FarAway = std::int64_t{1} << 28U;

std::string CalendarFile(const std::string& programFolder)
{
    return JoinPath(programFolder, CalendarFileName);
}

TTint NearestTint(const TTint& tint)
{
    const auto nearest = [](int value) { return std::clamp(value, -256, 255); };
    return {nearest(tint.Red), nearest(tint.Green), nearest(tint.Blue)};
}

// Rounds to the nearest second, which just before midnight is the next day's first one.
TDateTime WithinItsDay(TDateTime date)
{
    return std::min(date, DayOf(date) + (SecondsPerDay - 1) / SecondsPerDay);
}

TRect Cut(const TArea& area, const TRect& clip)
{
    const auto cut = [](std::int64_t value, int from, int to) {
        return static_cast<int>(std::clamp<std::int64_t>(value, from, to));
    };
    return {cut(area.Left, clip.Left, clip.Right), cut(area.Top, clip.Top, clip.Bottom),
            cut(area.Right, clip.Left, clip.Right), cut(area.Bottom, clip.Top, clip.Bottom)};
}

// Draws on the part of a picture that the calendar covers, in the calendar's own coordinates. What
// lies outside of that part is left out.
class TCalendarCanvas
{
public:
    TCalendarCanvas(TBitmap& picture, const TArea& place, TTextDrawing& text)
        : m_picture(picture), m_place(place), m_text(text),
          m_clip(Cut(place, {0, 0, picture.Width(), picture.Height()}))
    {
    }

    bool IsEmpty() const { return m_clip.Width() <= 0 || m_clip.Height() <= 0; }

    void Tint(const TArea& area, const TTint& tint)
    {
        TintRectangle(m_picture, OnPicture(area), NearestTint(tint));
    }

    // The outline, one pixel wide, inside of the area.
    void Frame(const TArea& area, TColor color)
    {
        if (area.Right <= area.Left || area.Bottom <= area.Top)
            return;
        Fill({area.Left, area.Top, area.Right, area.Top + 1}, color);
        Fill({area.Left, area.Bottom - 1, area.Right, area.Bottom}, color);
        Fill({area.Left, area.Top, area.Left + 1, area.Bottom}, color);
        Fill({area.Right - 1, area.Top, area.Right, area.Bottom}, color);
    }

    void Text(std::int64_t x, std::int64_t y, const TMuFont& font, TColor color,
              const std::string& text)
    {
        x += m_place.Left;
        y += m_place.Top;
        if (std::abs(x) < FarAway && std::abs(y) < FarAway)
            m_text.Draw(m_picture, m_clip, static_cast<int>(x), static_cast<int>(y), font, color,
                        text);
    }

private:
    TRect OnPicture(const TArea& area) const
    {
        return Cut({area.Left + m_place.Left, area.Top + m_place.Top, area.Right + m_place.Left,
                    area.Bottom + m_place.Top},
                   m_clip);
    }

    void Fill(const TArea& area, TColor color)
    {
        const TRect rect = OnPicture(area);
        for (int y = rect.Top; y < rect.Bottom; ++y)
            std::fill_n(m_picture.Row(y) + rect.Left, std::max(0, rect.Width()),
                        ColorToPixel(color));
    }

    TBitmap& m_picture;
    TArea m_place;
    TTextDrawing& m_text;
    TRect m_clip;
};

// One drawing of a calendar.
class TCalendarPainter
{
public:
    TCalendarPainter(TCalendarCanvas& canvas, const TMuCalendar& calendar, TTextDrawing& text,
                     const TDateNames& names)
        : m_canvas(canvas), m_settings(calendar.Settings), m_date(DayOf(calendar.Date)),
          m_text(text), m_names(names),
          m_title(FirstCharacters(
              FormatDate(m_settings.TitleFormat, WithinItsDay(calendar.Date), names),
              MostTitleLetters)),
          m_titleSize(text.Measure(m_settings.TitleFont, m_title)),
          m_layout(m_settings.CalendarWidth, m_settings.CalendarHeight, m_titleSize.Height,
                   text.Measure(m_settings.DayHeadingFont, "X").Height)
    {
    }

    void Paint()
    {
        m_canvas.Tint(m_layout.GridBand(), m_settings.MainGamma);
        m_canvas.Tint(m_layout.TitleBand(), m_settings.TitleGamma);
        m_canvas.Tint(m_layout.HeadingBand(), m_settings.DayHeadingGamma);
        m_canvas.Text(m_layout.TitleLeft(m_titleSize.Width), 0, m_settings.TitleFont,
                      m_settings.TitleFont.Color, m_title);
        if (m_settings.CalendarBorders)
            PaintBorders();
        PaintDayNames();
        PaintDays();
    }

private:
    void PaintBorders()
    {
        const TColor color = m_settings.BorderColor;
        m_canvas.Frame(m_layout.Whole(), color);
        m_canvas.Frame(m_layout.TitleBand(), color);
        m_canvas.Frame(m_layout.HeadingFrame(), color);
        for (int row = 0; row < CalendarRows; ++row)
            m_canvas.Frame(m_layout.RowFrame(row), color);
        for (int column = 0; column < CalendarColumns; ++column)
            m_canvas.Frame(m_layout.ColumnFrame(column), color);
    }

    // The week begins on Monday in every language.
    void PaintDayNames()
    {
        constexpr TDateTime someMonday = 2;
        const TMuFont& font = m_settings.DayHeadingFont;
        for (int column = 0; column < CalendarColumns; ++column) {
            const std::string name = FormatDate("ddd", someMonday + column, m_names);
            m_canvas.Text(m_layout.HeadingLeft(column, m_text.Measure(font, name).Width),
                          m_layout.HeadingTextTop(), font, font.Color, name);
        }
    }

    void PaintDays()
    {
        const TDateTime firstOfMonth = m_date - (DecodeDateTime(m_date).Day - 1);
        TDateTime day = firstOfMonth - WeekdayOf(firstOfMonth);
        for (int row = 0; row < CalendarRows; ++row)
            for (int column = 0; column < CalendarColumns; ++column, ++day) {
                m_canvas.Tint(m_layout.DayBox(row, column), m_settings.DayBoxGamma);
                m_canvas.Text(m_layout.DayTextLeft(column), m_layout.DayTextTop(row),
                              m_settings.DayFont, DayColor(day), FormatDate("dd", day, m_names));
            }
    }

    TColor DayColor(TDateTime day) const
    {
        const TDateParts parts = DecodeDateTime(day), today = DecodeDateTime(m_date);
        if (parts.Month != today.Month)
            return OtherMonthColor;
        return parts.Day == today.Day ? TodayColor : m_settings.DayFont.Color;
    }

    TCalendarCanvas& m_canvas;
    const TCalendarSettings& m_settings;
    TDateTime m_date;
    TTextDrawing& m_text;
    const TDateNames& m_names;
    std::string m_title;
    TSize m_titleSize;
    TCalendarLayout m_layout;
};

} // namespace

TMuCalendar::TMuCalendar(TTextDrawing& text, TDateNames names, TDateTime now)
    : Date(now), m_text(text), m_names(std::move(names))
{
}

void TMuCalendar::LoadFromFile(const std::string& programFolder)
{
    Settings = LoadCalendarSettings(TIniFile::Load(CalendarFile(programFolder)), CalendarSection);
}

void TMuCalendar::SaveToFile(const std::string& programFolder) const
{
    const std::string name = CalendarFile(programFolder);
    TIniFile file = TIniFile::Load(name);
    SaveCalendarSettings(file, CalendarSection, Settings);
    file.Save(name);
}

TArea TMuCalendar::Place(TSize picture) const
{
    const std::int64_t left =
        CalendarOffset(picture.Width, Settings.CalendarWidth, Settings.CalendarX);
    const std::int64_t top =
        CalendarOffset(picture.Height, Settings.CalendarHeight, Settings.CalendarY);
    return {left, top, left + Settings.CalendarWidth, top + Settings.CalendarHeight};
}

void TMuCalendar::Draw(TBitmap& picture) const
{
    TCalendarCanvas canvas(picture, Place(picture.Size()), m_text);
    if (!canvas.IsEmpty())
        TCalendarPainter(canvas, *this, m_text, m_names).Paint();
}

void TMuCalendar::Render(TBitmap& target) const
{
    TBitmap work = Picture.Copy();
    Draw(work);
    const bool isEmpty = target.Width() < 1 || target.Height() < 1;
    if (!isEmpty && target.Size() != work.Size())
        ResizeBitmap(work, target.Width(), target.Height());
    target = std::move(work);
}

} // namespace murala
