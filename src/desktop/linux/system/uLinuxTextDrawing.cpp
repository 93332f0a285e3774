#include "uPango.h"
#include "uTextDrawing.h"

#include <optional>

namespace murala
{

namespace
{

using TContext = TPangoOwner<PangoContext>;
using TLayout = TPangoOwner<PangoLayout>;
using TDescription = TPangoOwner<PangoFontDescription, &TPango::pango_font_description_free>;
using TAttributes = TPangoOwner<PangoAttrList, &TPango::pango_attr_list_unref>;
using TMetrics = TPangoOwner<PangoFontMetrics, &TPango::pango_font_metrics_unref>;
using TFontOptions = TPangoOwner<cairo_font_options_t, &TPango::cairo_font_options_destroy>;
using TSurface = TPangoOwner<cairo_surface_t, &TPango::cairo_surface_destroy>;
using TCanvas = TPangoOwner<cairo_t, &TPango::cairo_destroy>;

int RoundUp(int pangoUnits)
{
    return PANGO_PIXELS_CEIL(pangoUnits);
}

class TLinuxTextDrawing : public TTextDrawing
{
public:
    TSize Measure(const TMuFont& font, const std::string& text) override
    {
        Layout(font, text);
        int width = 0;
        m_pango.pango_layout_get_size(m_layout.get(), &width, nullptr);
        return {RoundUp(width), m_ascent + m_descent};
    }

    void Draw(TBitmap& bitmap, const TRect& clip, int x, int y, const TMuFont& font, TColor color,
              const std::string& text) override
    {
        const TRect part = TextPart(*this, font, text, x, y, clip, bitmap);
        if (part.Width() == 0)
            return;
        const TSurface surface(m_pango.cairo_image_surface_create_for_data(
            reinterpret_cast<unsigned char*>(bitmap.Row(part.Top) + part.Left), CAIRO_FORMAT_RGB24,
            part.Width(), part.Height(), bitmap.Width() * static_cast<int>(sizeof(TPixel))));
        const TCanvas canvas(m_pango.cairo_create(surface.get()));
        const auto channel = [=](unsigned shift) { return (color >> shift & 0xFFU) / 255.0; };
        m_pango.cairo_set_source_rgb(canvas.get(), channel(0), channel(8), channel(16));
        // On the font's own line, however high the helping fonts are.
        const int baseline = RoundUp(m_pango.pango_layout_get_baseline(m_layout.get()));
        m_pango.cairo_move_to(canvas.get(), x - part.Left, y - part.Top + m_ascent - baseline);
        m_pango.pango_cairo_show_layout(canvas.get(), m_layout.get());
        m_pango.cairo_surface_flush(surface.get());
    }

private:
    void Layout(const TMuFont& font, const std::string& text)
    {
        if (m_font != font)
            Select(font);
        const TPangoOwner<char, &TPango::g_free> valid(
            m_pango.g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
        m_pango.pango_layout_set_text(m_layout.get(), valid.get(), -1);
    }

    // The letters' shades are the same on every machine, whatever its screen is set to.
    TContext NewContext() const
    {
        TContext context(m_pango.pango_font_map_create_context(m_fonts.get()));
        const TFontOptions options(m_pango.cairo_font_options_create());
        m_pango.cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
        m_pango.cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_SLIGHT);
        m_pango.cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_ON);
        m_pango.pango_cairo_context_set_font_options(context.get(), options.get());
        return context;
    }

    void Select(const TMuFont& font)
    {
        m_font.reset();
        const TDescription description(m_pango.pango_font_description_new());
        auto* wanted = description.get();
        m_pango.pango_font_description_set_family(wanted, font.Name.c_str());
        m_pango.pango_font_description_set_absolute_size(
            wanted, static_cast<double>(FontPixels(font.Size)) * PANGO_SCALE);
        m_pango.pango_font_description_set_weight(wanted, font.Bold ? PANGO_WEIGHT_BOLD
                                                                    : PANGO_WEIGHT_NORMAL);
        m_pango.pango_font_description_set_style(wanted, font.Italic ? PANGO_STYLE_ITALIC
                                                                     : PANGO_STYLE_NORMAL);
        m_layout.reset(m_pango.pango_layout_new(m_context.get()));
        m_pango.pango_layout_set_single_paragraph_mode(m_layout.get(), TRUE);
        m_pango.pango_layout_set_font_description(m_layout.get(), wanted);
        SetLines(font);
        MeasureFont(wanted);
        m_font = font;
    }

    void SetLines(const TMuFont& font)
    {
        const TAttributes attributes(m_pango.pango_attr_list_new());
        if (font.Underline)
            m_pango.pango_attr_list_insert(
                attributes.get(), m_pango.pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
        if (font.Strikeout)
            m_pango.pango_attr_list_insert(attributes.get(),
                                           m_pango.pango_attr_strikethrough_new(TRUE));
        m_pango.pango_layout_set_attributes(m_layout.get(), attributes.get());
    }

    void MeasureFont(const PangoFontDescription* description)
    {
        const TPangoOwner<PangoFont> found(
            m_pango.pango_font_map_load_font(m_fonts.get(), m_context.get(), description));
        if (!found)
            throw std::runtime_error("Cannot draw text: this machine has no font");
        const TMetrics metrics(m_pango.pango_font_get_metrics(found.get(), nullptr));
        m_ascent = RoundUp(m_pango.pango_font_metrics_get_ascent(metrics.get()));
        m_descent = RoundUp(m_pango.pango_font_metrics_get_descent(metrics.get()));
    }

    const TPango& m_pango = TPango::Get();
    TPangoOwner<PangoFontMap> m_fonts{m_pango.pango_cairo_font_map_new()};
    TContext m_context = NewContext();
    TLayout m_layout;
    std::optional<TMuFont> m_font; // what the layout and the measures are for
    int m_ascent = 0, m_descent = 0;
};

} // namespace

std::unique_ptr<TTextDrawing> NewTextDrawing()
{
    return std::make_unique<TLinuxTextDrawing>();
}

} // namespace murala
