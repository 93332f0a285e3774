// Pango and Cairo, loaded when the first text is drawn: with their thirty libraries a program
// starts several milliseconds later, and most pictures have no text.
#pragma once

#include <pango/pangocairo.h>

#include <memory>

namespace murala
{

// The functions that are used.
#define MURALA_PANGO_FUNCTIONS(USE)                                                                \
    USE(pango_cairo_font_map_new)                                                                  \
    USE(pango_font_map_create_context)                                                             \
    USE(pango_font_map_load_font)                                                                  \
    USE(pango_font_get_metrics)                                                                    \
    USE(pango_font_metrics_get_ascent)                                                             \
    USE(pango_font_metrics_get_descent)                                                            \
    USE(pango_font_metrics_unref)                                                                  \
    USE(pango_font_description_new)                                                                \
    USE(pango_font_description_free)                                                               \
    USE(pango_font_description_set_family)                                                         \
    USE(pango_font_description_set_absolute_size)                                                  \
    USE(pango_font_description_set_weight)                                                         \
    USE(pango_font_description_set_style)                                                          \
    USE(pango_layout_new)                                                                          \
    USE(pango_layout_set_font_description)                                                         \
    USE(pango_layout_set_single_paragraph_mode)                                                    \
    USE(pango_layout_set_text)                                                                     \
    USE(pango_layout_set_attributes)                                                               \
    USE(pango_layout_get_size)                                                                     \
    USE(pango_layout_get_baseline)                                                                 \
    USE(pango_attr_list_new)                                                                       \
    USE(pango_attr_list_insert)                                                                    \
    USE(pango_attr_list_unref)                                                                     \
    USE(pango_attr_underline_new)                                                                  \
    USE(pango_attr_strikethrough_new)                                                              \
    USE(pango_cairo_context_set_font_options)                                                      \
    USE(pango_cairo_show_layout)                                                                   \
    USE(g_object_unref)                                                                            \
    USE(g_utf8_make_valid)                                                                         \
    USE(g_free)                                                                                    \
    USE(cairo_font_options_create)                                                                 \
    USE(cairo_font_options_set_antialias)                                                          \
    USE(cairo_font_options_set_hint_style)                                                         \
    USE(cairo_font_options_set_hint_metrics)                                                       \
    USE(cairo_font_options_destroy)                                                                \
    USE(cairo_image_surface_create_for_data)                                                       \
    USE(cairo_surface_flush)                                                                       \
    USE(cairo_surface_destroy)                                                                     \
    USE(cairo_create)                                                                              \
    USE(cairo_destroy)                                                                             \
    USE(cairo_set_source_rgb)                                                                      \
    USE(cairo_move_to)

// Each function is a member of its own name.
struct TPango {
#define MURALA_DECLARE(name) decltype(&::name) name; // NOLINT(bugprone-macro-parentheses)
    MURALA_PANGO_FUNCTIONS(MURALA_DECLARE)
#undef MURALA_DECLARE

    // Throws std::runtime_error when the libraries are missing.
    static const TPango& Get();
};

template<auto Function>
struct TPangoDeleter {
    template<class T>
    void operator()(T* thing) const
    {
        (TPango::Get().*Function)(thing);
    }
};
template<class T, auto Function = &TPango::g_object_unref>
using TPangoOwner = std::unique_ptr<T, TPangoDeleter<Function>>;

} // namespace murala
