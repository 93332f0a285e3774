#include "uCalendarLayout.h"

#include "uDisplayMode.h"

namespace murala
{

namespace
{

// All that is rounded here is a fraction of whole numbers; dividing once keeps its halves exact.
std::int64_t Divided(std::int64_t value, int by)
{
    return RoundHalfEven(static_cast<long double>(value) / by);
}

} // namespace

TCalendarLayout::TCalendarLayout(int width, int height, int titleHeight, int headingHeight)
    : m_width(width), m_height(height)
{
    const std::int64_t gap = Divided(titleHeight, 10); // below the title and below the day names
    m_headingTop = titleHeight + gap;
    m_gridTop = m_headingTop + headingHeight + gap;
}

std::int64_t TCalendarLayout::ColumnEdge(int column) const
{
    return Divided(column * m_width, CalendarColumns);
}

std::int64_t TCalendarLayout::RowEdge(int row) const
{
    return m_gridTop - 1 + Divided(row * (m_height - m_gridTop), CalendarRows);
}

TArea TCalendarLayout::RowFrame(int row) const
{
    return {0, m_gridTop - 1, m_width, RowEdge(row + 1) + 1};
}

TArea TCalendarLayout::ColumnFrame(int column) const
{
    return {0, m_headingTop - 1, ColumnEdge(column + 1), m_height};
}

std::int64_t TCalendarLayout::HeadingLeft(int column, int textWidth) const
{
    const std::int64_t doubledSpace = m_width - std::int64_t{CalendarColumns} * textWidth;
    return ColumnEdge(column) + Divided(doubledSpace, 2 * CalendarColumns);
}

TArea TCalendarLayout::DayBox(int row, int column) const
{
    const std::int64_t inset = Divided(m_width, 100);
    const std::int64_t left = ColumnEdge(column), top = RowEdge(row);
    return {left + inset, top + inset, left + ColumnEdge(1) - inset,
            top + Divided(m_height - m_gridTop, CalendarRows) - inset};
}

std::int64_t TCalendarLayout::DayTextLeft(int column) const
{
    return ColumnEdge(column) + Divided(m_width, 100) + Divided(m_width, 50);
}

std::int64_t TCalendarLayout::DayTextTop(int row) const
{
    return RowEdge(row) + Divided(m_width, 100) + Divided(m_width, 50);
}

std::int64_t CalendarOffset(int pictureExtent, int calendarExtent, int percent)
{
    const auto space = static_cast<long double>(std::int64_t{pictureExtent} - calendarExtent);
    return RoundHalfEven(space * percent / 100);
}

} // namespace murala
