#include "uToldMenu.h"

#include <algorithm>
#include <limits>

namespace murala
{

namespace
{

// A layout of more entries than these is put together, and sent, in a thread of its own.
constexpr std::size_t MostEntriesAtOnce = 500;

// Null where it is as of an entry that says nothing of it.
struct TProperty {
    const char* Name;
    GVariant* (*Value)(const TFlatMenu& menu, std::size_t i);
};

GVariant* Label(const TFlatMenu& menu, std::size_t i)
{
    const std::string_view label = menu.Label(i);
    return label.empty() ? nullptr
                         : g_variant_new_take_string(g_strndup(label.data(), label.size()));
}

const TProperty Properties[] = {
    {"type",
     [](const TFlatMenu& menu, std::size_t i) {
         return menu[i].IsSeparator ? g_variant_new_string("separator") : nullptr;
     }},
    {"label", Label},
    {"enabled",
     [](const TFlatMenu& menu, std::size_t i) {
         return menu[i].Enabled ? nullptr : g_variant_new_boolean(FALSE);
     }},
    {"toggle-type",
     [](const TFlatMenu& menu, std::size_t i) {
         return menu[i].Checked ? g_variant_new_string("checkmark") : nullptr;
     }},
    {"toggle-state",
     [](const TFlatMenu& menu, std::size_t i) {
         return menu[i].Checked ? g_variant_new_int32(1) : nullptr;
     }},
    {"children-display",
     [](const TFlatMenu& menu, std::size_t i) {
         return menu.HasMenuBelow(i) ? g_variant_new_string("submenu") : nullptr;
     }},
};

TVariant Child(GVariant* tuple, gsize place)
{
    return TVariant(g_variant_get_child_value(tuple, place));
}

// They live as long as the array.
std::vector<std::string_view> Texts(GVariant* array)
{
    std::vector<std::string_view> texts;
    GVariantIter iterator;
    g_variant_iter_init(&iterator, array);
    const char* text = nullptr;
    while (g_variant_iter_next(&iterator, "&s", &text) != FALSE)
        texts.emplace_back(text);
    return texts;
}

} // namespace

std::vector<gint32> NumbersOf(GVariant* array)
{
    gsize count = 0;
    const auto* numbers =
        static_cast<const gint32*>(g_variant_get_fixed_array(array, &count, sizeof(gint32)));
    return {numbers, numbers + count};
}

TToldMenu TToldMenu::Next(TFlatMenu menu) const
{
    const auto used = static_cast<gint32>(m_menu.Count()) - 1;
    const auto needed = static_cast<gint32>(menu.Count());
    // Behind the last number they begin anew: by then nobody remembers the first ones.
    const bool isRoom = m_first <= std::numeric_limits<gint32>::max() - used - needed;
    return {std::move(menu), isRoom ? m_first + used : 1, m_revision + 1};
}

GVariant* TToldMenu::Changes(const TToldMenu& before) const
{
    std::vector<gint32> changed;
    GVariantBuilder removed;
    g_variant_builder_init(&removed, G_VARIANT_TYPE("a(ias)"));
    for (std::size_t i = 0; i < m_menu.Count(); ++i) {
        if (m_menu[i].Enabled == before.m_menu[i].Enabled)
            continue;
        changed.push_back(Number(i));
        const char* const enabled[] = {"enabled", nullptr};
        if (m_menu[i].Enabled)
            g_variant_builder_add(&removed, "(i^as)", Number(i), enabled);
    }
    if (!changed.empty())
        return g_variant_new("(@a(ia{sv})a(ias))", GroupProperties(changed, {}), &removed);
    g_variant_builder_clear(&removed);
    return nullptr;
}

gint32 TToldMenu::Number(std::size_t i) const
{
    return i == 0 ? 0 : m_first + static_cast<gint32>(i) - 1;
}

std::optional<std::size_t> TToldMenu::Find(gint32 number) const
{
    if (number == 0)
        return 0;
    const auto i = static_cast<std::int64_t>(number) - m_first + 1;
    if (i < 1 || i >= static_cast<std::int64_t>(m_menu.Count()))
        return std::nullopt;
    return static_cast<std::size_t>(i);
}

// None wanted: all of them.
GVariant* TToldMenu::PropertiesOf(std::size_t i, const TNames& wanted) const
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a{sv}"));
    for (const TProperty& property : Properties)
        if (wanted.empty() || std::ranges::find(wanted, property.Name) != wanted.end())
            if (GVariant* value = property.Value(m_menu, i))
                g_variant_builder_add(&builder, "{sv}", property.Name, value);
    return g_variant_builder_end(&builder);
}

GVariant* TToldMenu::Layout(std::size_t i, int depth, const TNames& wanted) const
{
    GVariantBuilder below;
    g_variant_builder_init(&below, G_VARIANT_TYPE("av"));
    if (depth != 0)
        for (std::size_t next = i + 1; next < m_menu[i].End; next = m_menu[next].End) {
            GVariant* item = g_variant_new_variant(Layout(next, depth - 1, wanted));
            // In one piece: GLib keeps the memory of the many small ones for itself.
            if (m_menu.HasMenuBelow(next))
                g_variant_get_data(item);
            g_variant_builder_add_value(&below, item);
        }
    return g_variant_new("(i@a{sv}@av)", Number(i), PropertiesOf(i, wanted),
                         g_variant_builder_end(&below));
}

GVariant* TToldMenu::GroupProperties(std::span<const gint32> numbers, const TNames& wanted) const
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a(ia{sv})"));
    for (const gint32 number : numbers)
        if (const auto i = Find(number))
            g_variant_builder_add(&builder, "(i@a{sv})", number, PropertiesOf(*i, wanted));
    return g_variant_builder_end(&builder);
}

GVariant* TToldMenu::GetLayout(GVariant* arguments) const
{
    gint32 number = 0, depth = 0;
    g_variant_get_child(arguments, 0, "i", &number);
    g_variant_get_child(arguments, 1, "i", &depth);
    const auto i = Find(number);
    if (!i)
        return nullptr;
    const TVariant names = Child(arguments, 2);
    return g_variant_new("(u@(ia{sv}av))", m_revision, Layout(*i, depth, Texts(names.get())));
}

GVariant* TToldMenu::GetGroupProperties(GVariant* arguments) const
{
    std::vector<gint32> numbers = NumbersOf(Child(arguments, 0).get());
    if (numbers.empty()) // all of them
        for (std::size_t i = 0; i < m_menu.Count(); ++i)
            numbers.push_back(Number(i));
    const TVariant names = Child(arguments, 1);
    return g_variant_new("(@a(ia{sv}))", GroupProperties(numbers, Texts(names.get())));
}

GVariant* TToldMenu::GetProperty(GVariant* arguments) const
{
    gint32 number = 0;
    const char* name = nullptr;
    g_variant_get(arguments, "(i&s)", &number, &name);
    const auto i = Find(number);
    const auto property = std::ranges::find(Properties, std::string_view(name), &TProperty::Name);
    GVariant* value = i && property != std::end(Properties) ? property->Value(m_menu, *i) : nullptr;
    return value != nullptr ? g_variant_new("(v)", value) : nullptr;
}

bool TToldMenu::IsLarge(GVariant* arguments) const
{
    gint32 number = 0, depth = 0;
    g_variant_get_child(arguments, 0, "i", &number);
    g_variant_get_child(arguments, 1, "i", &depth);
    const auto i = Find(number);
    return i && depth != 1 && m_menu[*i].End - *i > MostEntriesAtOnce;
}

} // namespace murala
