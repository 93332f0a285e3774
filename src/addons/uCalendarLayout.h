// Where everything in the calendar lies.
#pragma once

#include "uGeometry.h"

#include <cstdint>

namespace murala
{

// A rectangle that may lie anywhere: settings from a file are not checked. Right and bottom are
// exclusive.
struct TArea {
    std::int64_t Left = 0, Top = 0, Right = 0, Bottom = 0;
};

inline constexpr int CalendarRows = 6, CalendarColumns = 7;

// In pixels from the calendar's top-left corner. Rows and columns count from 0. Every edge is
// rounded for itself, half to even, so that neighbours may differ by a pixel.
class TCalendarLayout
{
public:
    // The heights are those of a line of the title's and of the day names' font.
    TCalendarLayout(int width, int height, int titleHeight, int headingHeight);

    TArea Whole() const { return {0, 0, m_width, m_height}; }
    TArea TitleBand() const { return {0, 0, m_width, m_headingTop}; }
    TArea HeadingBand() const { return {0, m_headingTop, m_width, m_gridTop}; }
    TArea GridBand() const { return {0, m_gridTop, m_width, m_height}; }

    // The frames whose lower and right-hand lines part the rows and columns.
    TArea HeadingFrame() const { return {0, m_headingTop - 1, m_width, m_gridTop}; }
    TArea RowFrame(int row) const;
    TArea ColumnFrame(int column) const;

    std::int64_t TitleLeft(int textWidth) const { return (m_width - textWidth) / 2; }
    std::int64_t HeadingLeft(int column, int textWidth) const;
    std::int64_t HeadingTextTop() const { return m_headingTop - 1; }

    // A day's box, whose sides cross when the cell is too small for one, and where its number
    // begins.
    TArea DayBox(int row, int column) const;
    std::int64_t DayTextLeft(int column) const;
    std::int64_t DayTextTop(int row) const;

private:
    std::int64_t ColumnEdge(int column) const;
    std::int64_t RowEdge(int row) const;

    std::int64_t m_width, m_height;
    std::int64_t m_headingTop, m_gridTop;
};

// The offset of a calendar of this extent in a picture, `percent` of the free space.
std::int64_t CalendarOffset(int pictureExtent, int calendarExtent, int percent);

} // namespace murala
