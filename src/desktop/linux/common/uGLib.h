// Owners for what GLib hands out.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace murala
{

template<auto Free>
struct TFreeBy {
    template<class T>
    void operator()(T* thing) const noexcept
    {
        Free(thing);
    }
};

template<class T>
using TGObject = std::unique_ptr<T, TFreeBy<g_object_unref>>;
using TGText = std::unique_ptr<char, TFreeBy<g_free>>;
using TVariant = std::unique_ptr<GVariant, TFreeBy<g_variant_unref>>;

// An element of a tuple or an array.
inline TVariant Child(GVariant* container, gsize place)
{
    return TVariant(g_variant_get_child_value(container, place));
}

} // namespace murala
