#include "uCalendarView.h"

#include "uDisplayMode.h"

#include <algorithm>
#include <limits>

namespace murala
{

namespace
{

constexpr int Margin = 16; // around a fitted picture, both sides together

// Scales `value` from a length of `from` to a length of `to`.
int Scaled(std::int64_t value, int from, int to)
{
    if (from < 1)
        return 0;
    const std::int64_t scaled = RoundHalfEven(static_cast<long double>(to) / from * value);
    constexpr std::int64_t limit = std::numeric_limits<int>::max() / 4;
    return static_cast<int>(std::clamp(scaled, -limit, limit));
}

int Percent(int offset, int freeSpace, int otherwise)
{
    if (freeSpace == 0)
        return otherwise;
    const long double share = static_cast<long double>(offset) / freeSpace * 100;
    return static_cast<int>(std::clamp<std::int64_t>(RoundHalfEven(share), 0, 100));
}

} // namespace

TSize FittedSize(TSize client, TSize picture)
{
    if (picture.Width < 1 || picture.Height < 1)
        return picture;
    const int width = std::max(client.Width - Margin, 1);
    const int height = std::max(client.Height - Margin, 1);
    const TSize fitted{width, Scaled(picture.Height, picture.Width, width)};
    if (fitted.Height <= height)
        return {fitted.Width, std::max(fitted.Height, 1)};
    return {std::max(Scaled(picture.Width, picture.Height, height), 1), height};
}

TCalendarView::TCalendarView(TSize image, TSize picture, const TCalendarSettings& settings)
    : m_image(image), m_picture(picture),
      m_calendar{
          CalendarOffset(picture.Width, settings.CalendarWidth, settings.CalendarX),
          CalendarOffset(picture.Height, settings.CalendarHeight, settings.CalendarY),
          0,
          0,
      },
      m_present{settings.CalendarX, settings.CalendarY}
{
    m_calendar.Right = m_calendar.Left + settings.CalendarWidth;
    m_calendar.Bottom = m_calendar.Top + settings.CalendarHeight;
    const int left = Scaled(m_calendar.Left, picture.Width, image.Width);
    const int top = Scaled(m_calendar.Top, picture.Height, image.Height);
    m_outline = {left, top, left + Scaled(settings.CalendarWidth, picture.Width, image.Width),
                 top + Scaled(settings.CalendarHeight, picture.Height, image.Height)};
}

bool TCalendarView::IsOverCalendar(int x, int y) const
{
    const int left = Scaled(x, m_image.Width, m_picture.Width);
    const int top = Scaled(y, m_image.Height, m_picture.Height);
    return left >= m_calendar.Left && left < m_calendar.Right && top >= m_calendar.Top &&
           top < m_calendar.Bottom;
}

TRect TCalendarView::Dragged(int x, int y, int grabX, int grabY) const
{
    const int width = m_outline.Width(), height = m_outline.Height();
    const int left = std::max(0, std::min(x - grabX, m_image.Width - width));
    const int top = std::max(0, std::min(y - grabY, m_image.Height - height));
    return {left, top, left + width, top + height};
}

TCalendarView::TPlace TCalendarView::Dropped(const TRect& outline) const
{
    return {Percent(outline.Left, m_image.Width - outline.Width(), m_present.X),
            Percent(outline.Top, m_image.Height - outline.Height(), m_present.Y)};
}

} // namespace murala
