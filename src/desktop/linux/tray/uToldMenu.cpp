#include "uToldMenu.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace murala
{

namespace
{

// A layout of more entries than these is put together, and sent, in a thread of its own.
constexpr std::size_t MostEntriesAtOnce = 500;
// How many entries of menus that were never shown are told together, below one menu.
constexpr std::size_t MostUnseen = 200;
// How many entries may have gone between two that are still there; a bound to the search.
constexpr int LongestGap = 128;

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

TToldMenu::TToldMenu(TFlatMenu menu)
    : TToldMenu(TToldMenu(TFlatMenu(TMenuItem(), 0), {0}, 1, 1).Next(std::move(menu)))
{
}

TToldMenu::TToldMenu(TFlatMenu menu, std::vector<gint32> numbers, gint32 free, guint revision)
    : m_menu(std::move(menu)), m_numbers(std::move(numbers)), m_order(m_numbers.size()),
      m_free(free), m_revision(revision)
{
    std::iota(m_order.begin(), m_order.end(), 0U);
    std::ranges::sort(m_order, {}, [this](std::uint32_t i) { return m_numbers[i]; });
}

TToldMenu TToldMenu::Next(TFlatMenu menu) const
{
    std::vector<gint32> numbers(menu.Count());
    gint32 free = m_free;
    // Behind the last number they begin anew: by then nobody remembers the first ones.
    if (free < std::numeric_limits<gint32>::max() - static_cast<gint32>(menu.Count()))
        Keep(0, menu, 0, numbers);
    else
        free = 1;
    for (std::size_t i = 1; i < numbers.size(); ++i)
        if (numbers[i] == 0)
            numbers[i] = free++;
    const guint revision = numbers == m_numbers ? m_revision : m_revision + 1;
    return {std::move(menu), std::move(numbers), free, revision};
}

// Of the entries below `j` in the menu those that are below `i` here.
void TToldMenu::Keep(std::size_t i, const TFlatMenu& menu, std::size_t j,
                     std::vector<gint32>& numbers) const
{
    const std::size_t end = m_menu[i].End;
    std::size_t next = i + 1;
    for (std::size_t to = j + 1; to < menu[j].End; to = menu[to].End) {
        std::size_t from = next;
        for (int gap = 0; from < end && !menu.LooksAs(to, m_menu, from); ++gap)
            from = gap < LongestGap ? m_menu[from].End : end;
        if (from >= end)
            continue;
        numbers[to] = m_numbers[from];
        Keep(from, menu, to, numbers);
        next = m_menu[from].End;
    }
}

GVariant* TToldMenu::Changes(const TToldMenu& before) const
{
    std::vector<gint32> changed;
    GVariantBuilder removed;
    g_variant_builder_init(&removed, G_VARIANT_TYPE("a(ias)"));
    for (std::size_t i = 0; i < m_menu.Count(); ++i) {
        const auto known = before.Find(m_numbers[i]);
        if (!known || m_menu[i].Enabled == before.m_menu[*known].Enabled)
            continue;
        changed.push_back(m_numbers[i]);
        const char* const enabled[] = {"enabled", nullptr};
        if (m_menu[i].Enabled)
            g_variant_builder_add(&removed, "(i^as)", m_numbers[i], enabled);
    }
    if (!changed.empty())
        return g_variant_new("(@a(ia{sv})a(ias))", GroupProperties(changed, {}), &removed);
    g_variant_builder_clear(&removed);
    return nullptr;
}

std::vector<gint32> TToldMenu::MenusChanged(const TToldMenu& before) const
{
    std::vector<gint32> changed;
    for (std::size_t i = 0; i < m_menu.Count(); ++i)
        if (m_menu.HasMenuBelow(i))
            if (const auto known = before.Find(m_numbers[i]))
                if (EntriesOf(i) != before.EntriesOf(*known))
                    changed.push_back(m_numbers[i]);
    return changed;
}

std::optional<std::size_t> TToldMenu::Find(gint32 number) const
{
    const auto found = std::ranges::lower_bound(m_order, number, {},
                                                [this](std::uint32_t i) { return m_numbers[i]; });
    if (found == m_order.end() || m_numbers[*found] != number)
        return std::nullopt;
    return *found;
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

std::vector<gint32> TToldMenu::EntriesOf(std::size_t i) const
{
    std::vector<gint32> entries;
    for (std::size_t next = i + 1; next < m_menu[i].End; next = m_menu[next].End)
        entries.push_back(m_numbers[next]);
    return entries;
}

GVariant* TToldMenu::Layout(std::size_t i, int depth, const TNames& wanted, TOutline* outline,
                            std::size_t most) const
{
    GVariantBuilder below;
    g_variant_builder_init(&below, G_VARIANT_TYPE("av"));
    std::size_t rest = depth != 0 ? EntriesOf(i).size() : 0;
    const std::size_t mostBelow =
        std::max<std::size_t>(1, MostUnseen / std::max<std::size_t>(1, rest));
    if (outline != nullptr && m_numbers[i] != 0 && !outline->Shown.contains(m_numbers[i]))
        rest = std::min(rest, most);
    for (std::size_t next = i + 1; rest > 0; --rest, next = m_menu[next].End) {
        GVariant* item = g_variant_new_variant(Layout(next, depth - 1, wanted, outline, mostBelow));
        // In one piece: GLib keeps the memory of the many small ones for itself.
        if (m_menu.HasMenuBelow(next))
            g_variant_get_data(item);
        g_variant_builder_add_value(&below, item);
    }
    const bool isTold =
        outline != nullptr && !wanted.empty() && !outline->Told.insert(m_numbers[i]).second;
    return g_variant_new("(i@a{sv}@av)", m_numbers[i],
                         PropertiesOf(i, isTold ? TNames{""} : wanted),
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

GVariant* TToldMenu::AnswerLayout(GVariant* arguments, TOutline* outline) const
{
    gint32 number = 0, depth = 0;
    g_variant_get_child(arguments, 0, "i", &number);
    g_variant_get_child(arguments, 1, "i", &depth);
    const auto i = Find(number);
    if (!i)
        return nullptr;
    const TVariant names = Child(arguments, 2);
    return g_variant_new("(u@(ia{sv}av))", m_revision,
                         Layout(*i, depth, Texts(names.get()), outline));
}

GVariant* TToldMenu::GetLayout(GVariant* arguments) const
{
    return AnswerLayout(arguments, nullptr);
}

GVariant* TToldMenu::GetOutline(GVariant* arguments, TOutline& outline) const
{
    return AnswerLayout(arguments, &outline);
}

bool TToldMenu::IsForOutline(GVariant* arguments) const
{
    gint32 depth = 0;
    g_variant_get_child(arguments, 1, "i", &depth);
    const TVariant names = Child(arguments, 2);
    const auto wanted = Texts(names.get());
    return m_menu.Count() > MostUnseen &&
           (wanted.empty() ? depth == 1 : std::ranges::find(wanted, "label") == wanted.end());
}

GVariant* TToldMenu::GetGroupProperties(GVariant* arguments) const
{
    std::vector<gint32> numbers = NumbersOf(Child(arguments, 0).get());
    if (numbers.empty()) // all of them
        numbers = m_numbers;
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
