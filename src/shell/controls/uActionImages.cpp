#include "uActionImages.h"

#include <functional>
#include <memory>
#include <vector>

#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/image.h>
#include <wx/settings.h>

namespace murala
{

namespace
{

// Pictures are drawn on a field of 16 by 16 units.
constexpr double FieldSide = 16.0;

const wxColour Green(46, 139, 70), Red(190, 60, 50), Blue(52, 110, 190), Amber(222, 160, 40);

class TPen
{
public:
    explicit TPen(wxGraphicsContext& context) : m_context(context) {}

    void Ink(const wxColour& colour, double width)
    {
        m_context.SetPen(m_context.CreatePen(
            wxGraphicsPenInfo(colour).Width(width).Cap(wxCAP_ROUND).Join(wxJOIN_ROUND)));
        m_context.SetBrush(*wxTRANSPARENT_BRUSH);
    }
    void Fill(const wxColour& colour)
    {
        m_context.SetPen(*wxTRANSPARENT_PEN);
        m_context.SetBrush(wxBrush(colour));
    }
    void Lines(const std::vector<wxPoint2DDouble>& points)
    {
        m_context.DrawLines(points.size(), points.data());
    }
    void Box(double x, double y, double width, double height)
    {
        m_context.DrawRectangle(x, y, width, height);
    }
    // The outline of a small screen.
    void Screen()
    {
        Ink(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT), 1);
        m_context.DrawRoundedRectangle(1.5, 2.5, 13, 10, 1);
    }

private:
    wxGraphicsContext& m_context;
};

void DrawArrow(TPen& pen, double tip, double tail)
{
    const double barb = tip > tail ? -4.0 : 4.0;
    pen.Ink(Blue, 2);
    pen.Lines({{tail, 8}, {tip, 8}});
    pen.Lines({{tip + barb, 4}, {tip, 8}, {tip + barb, 12}});
}

struct TDrawing {
    TActionId Action;
    void (*Draw)(TPen&);
};

const TDrawing Drawings[] = {
    {aAdd,
     [](TPen& pen) {
         pen.Ink(Green, 2.5);
         pen.Lines({{8, 3}, {8, 13}});
         pen.Lines({{3, 8}, {13, 8}});
     }},
    {aRemove,
     [](TPen& pen) {
         pen.Ink(Red, 2.5);
         pen.Lines({{4, 4}, {12, 12}});
         pen.Lines({{12, 4}, {4, 12}});
     }},
    {aApply,
     [](TPen& pen) {
         pen.Screen();
         pen.Ink(Green, 2.2);
         pen.Lines({{4.5, 7.5}, {7, 10}, {11.5, 5}});
         pen.Ink(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT), 1);
         pen.Lines({{5, 14.5}, {11, 14.5}});
     }},
    {aNext, [](TPen& pen) { DrawArrow(pen, 13, 3); }},
    {aPrevious, [](TPen& pen) { DrawArrow(pen, 3, 13); }},
    {aDisplayNext,
     [](TPen& pen) {
         pen.Screen();
         pen.Fill(Blue);
         pen.Box(3, 4, 4.5, 3);
         pen.Box(8.5, 8, 4.5, 3);
         pen.Fill(Amber);
         pen.Box(8.5, 4, 4.5, 3);
         pen.Box(3, 8, 4.5, 3);
     }},
    {aTransparentIcons,
     [](TPen& pen) {
         pen.Fill(Blue);
         pen.Box(5, 2, 6, 6);
         pen.Ink(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT), 1);
         pen.Lines({{2.5, 11.5}, {4, 11.5}});
         pen.Lines({{6, 11.5}, {10, 11.5}});
         pen.Lines({{12, 11.5}, {13.5, 11.5}});
         pen.Lines({{4.5, 14}, {11.5, 14}});
     }},
    {aNextView,
     [](TPen& pen) {
         for (const double y : {3.0, 7.0, 11.0}) {
             pen.Fill(y == 7.0 ? Amber : Blue);
             pen.Box(2, y, 4, 3);
             pen.Ink(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT), 1);
             pen.Lines({{8, y + 1.5}, {14, y + 1.5}});
         }
     }},
};

// Draws the picture anew for each size that is asked for.
class TDrawnImage : public wxBitmapBundleImpl
{
public:
    TDrawnImage(const TDrawing& drawing, int side) : m_drawing(drawing), m_side(side) {}

    wxSize GetDefaultSize() const override { return {m_side, m_side}; }
    wxSize GetPreferredBitmapSizeAtScale(double scale) const override
    {
        return GetDefaultSize() * scale;
    }
    wxBitmap GetBitmap(const wxSize& size) override
    {
        wxImage canvas(size);
        canvas.InitAlpha();
        std::fill_n(canvas.GetAlpha(), size.x * size.y, static_cast<unsigned char>(0));
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(canvas));
        context->Scale(size.x / FieldSide, size.y / FieldSide);
        TPen pen(*context);
        m_drawing.Draw(pen);
        context->Flush();
        return {canvas};
    }

private:
    const TDrawing& m_drawing;
    int m_side;
};

} // namespace

wxBitmapBundle ActionImage(TActionId action, int side)
{
    for (const TDrawing& drawing : Drawings)
        if (drawing.Action == action)
            return wxBitmapBundle::FromImpl(new TDrawnImage(drawing, side));
    return {};
}

} // namespace murala
