// Works out by rule, pixel by pixel, what a calendar with texts of fixed measures looks like.
#pragma once

#include "uCalendarSettings.h"
#include "uDateFormat.h"
#include "uTextFakes.h"

namespace murala
{

struct TExpectedDay {
    int Day;
    bool IsInMonth, IsToday;
};

class TExpectedCalendar
{
public:
    // `firstDay` is the day of the first cell's date in a month of `daysInFirst` days: the month
    // shown when it is 1, else the one before.
    TExpectedCalendar(TCalendarSettings settings, std::string title, int firstDay, int daysInFirst,
                      int daysInMonth, int today)
        : m_settings(std::move(settings)), m_title(std::move(title)),
          m_titleHeight(FontPixels(m_settings.TitleFont.Size))
    {
        const int gap = Round(m_titleHeight, 10);
        m_bandTop = m_titleHeight + gap;
        m_gridTop = m_bandTop + FontPixels(m_settings.DayHeadingFont.Size) + gap;
        int day = firstDay;
        bool isInMonth = firstDay == 1;
        for (int days = isInMonth ? daysInMonth : daysInFirst; Days.size() < 42; ++day) {
            if (day > days) {
                isInMonth = !isInMonth;
                days = daysInMonth; // of a third month only the beginning is seen
                day = 1;
            }
            Days.push_back({day, isInMonth, isInMonth && day == today});
        }
    }

    std::vector<TExpectedDay> Days;

    TPixel At(const TBitmap& background, int x, int y) const
    {
        const int cx = x - Round((background.Width() - W()) * m_settings.CalendarX, 100);
        const int cy = y - Round((background.Height() - H()) * m_settings.CalendarY, 100);
        const TPixel behind = background.Row(y)[x] & 0xFFFFFFU;
        return cx >= 0 && cx < W() && cy >= 0 && cy < H() ? Inside(behind, cx, cy) : behind;
    }

    // To the nearest, half to even, without any fraction.
    static int Round(std::int64_t value, std::int64_t by)
    {
        std::int64_t down = value / by - (value % by < 0 ? 1 : 0);
        const std::int64_t twiceRest = 2 * (value - down * by);
        if (twiceRest > by || (twiceRest == by && down % 2 != 0))
            ++down;
        return static_cast<int>(down);
    }

private:
    int W() const { return m_settings.CalendarWidth; }
    int H() const { return m_settings.CalendarHeight; }

    static TPixel Tinted(TPixel pixel, const TTint& tint)
    {
        const auto channel = [=](int shift, int value) {
            const int c = static_cast<int>(pixel >> shift) & 0xFF;
            const int tinted =
                value < 0 ? c * (value + 256) / 256 : c * (255 - value) / 255 + value;
            return static_cast<TPixel>(tinted) << shift;
        };
        return channel(16, tint.Red) | channel(8, tint.Green) | channel(0, tint.Blue);
    }

    static bool IsOn(int x, int y, int left, int top, TSize size)
    {
        return x >= left && x < left + size.Width && y >= top && y < top + size.Height;
    }

    bool IsOnLine(int x, int y) const
    {
        bool isOn = x == 0 || x == W() - 1 || y == 0 || y == H() - 1 || y == m_bandTop - 1 ||
                    y == m_gridTop - 1;
        for (int row = 1; row <= 6; ++row)
            isOn = isOn || y == m_gridTop - 1 + Round(row * (H() - m_gridTop), 6);
        for (int column = 1; column <= 7; ++column)
            isOn = isOn || (y >= m_bandTop - 1 && x == Round(column * W(), 7) - 1);
        return isOn;
    }

    TPixel Inside(TPixel pixel, int x, int y) const
    {
        pixel = Tinted(pixel, y >= m_gridTop  ? m_settings.MainGamma
                              : y < m_bandTop ? m_settings.TitleGamma
                                              : m_settings.DayHeadingGamma);
        const TSize title = TFixedText::SizeOf(m_settings.TitleFont, m_title);
        if (IsOn(x, y, (W() - title.Width) / 2, 0, title))
            pixel = ColorToPixel(m_settings.TitleFont.Color);
        if (m_settings.CalendarBorders && IsOnLine(x, y))
            pixel = ColorToPixel(m_settings.BorderColor);
        const TSize name = TFixedText::SizeOf(m_settings.DayHeadingFont, "Mon");
        for (int column = 0; column < 7; ++column) {
            const int left = Round(column * W(), 7) + Round(W() - 7 * name.Width, 14);
            if (IsOn(x, y, left, m_bandTop - 1, name))
                pixel = ColorToPixel(m_settings.DayHeadingFont.Color);
        }
        for (int cell = 0; cell < 42; ++cell)
            pixel = InCell(pixel, x, y, cell);
        return pixel;
    }

    TPixel InCell(TPixel pixel, int x, int y, int cell) const
    {
        const int d1 = Round(W(), 100), d2 = Round(2 * W(), 100);
        const int left = Round((cell % 7) * W(), 7);
        const int top = m_gridTop - 1 + Round((cell / 7) * (H() - m_gridTop), 6);
        const TSize box{Round(W(), 7) - 2 * d1, Round(H() - m_gridTop, 6) - 2 * d1};
        if (IsOn(x, y, left + d1, top + d1, box))
            pixel = Tinted(pixel, m_settings.DayBoxGamma);
        const TExpectedDay& day = Days[static_cast<std::size_t>(cell)];
        if (IsOn(x, y, left + d1 + d2, top + d1 + d2, TFixedText::SizeOf(m_settings.DayFont, "01")))
            pixel = !day.IsInMonth ? 0x808080
                    : day.IsToday  ? 0xFF0000
                                   : ColorToPixel(m_settings.DayFont.Color);
        return pixel;
    }

    TCalendarSettings m_settings;
    std::string m_title;
    int m_titleHeight, m_bandTop, m_gridTop;
};

} // namespace murala
