#include "uDBusMenu.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace murala
{

namespace
{

constexpr const char* Introspection = R"xml(<node><interface name="com.canonical.dbusmenu">
<property name="Version" type="u" access="read"/>
<property name="TextDirection" type="s" access="read"/>
<property name="Status" type="s" access="read"/>
<property name="IconThemePath" type="as" access="read"/>
<method name="GetLayout"><arg type="i" direction="in"/><arg type="i" direction="in"/>
<arg type="as" direction="in"/><arg type="u" direction="out"/>
<arg type="(ia{sv}av)" direction="out"/></method>
<method name="GetGroupProperties"><arg type="ai" direction="in"/><arg type="as" direction="in"/>
<arg type="a(ia{sv})" direction="out"/></method>
<method name="GetProperty"><arg type="i" direction="in"/><arg type="s" direction="in"/>
<arg type="v" direction="out"/></method>
<method name="Event"><arg type="i" direction="in"/><arg type="s" direction="in"/>
<arg type="v" direction="in"/><arg type="u" direction="in"/></method>
<method name="EventGroup"><arg type="a(isvu)" direction="in"/><arg type="ai" direction="out"/>
</method>
<method name="AboutToShow"><arg type="i" direction="in"/><arg type="b" direction="out"/></method>
<method name="AboutToShowGroup"><arg type="ai" direction="in"/><arg type="ai" direction="out"/>
<arg type="ai" direction="out"/></method>
<signal name="ItemsPropertiesUpdated"><arg type="a(ia{sv})"/><arg type="a(ias)"/></signal>
<signal name="LayoutUpdated"><arg type="u"/><arg type="i"/></signal>
</interface></node>)xml";

// A message on the bus may be nested 64 times, and the bus ends the connection of one that is
// deeper. Each menu below another takes three of them.
constexpr int DeepestMenu = 18;

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

std::vector<gint32> Numbers(GVariant* array)
{
    gsize count = 0;
    const auto* numbers =
        static_cast<const gint32*>(g_variant_get_fixed_array(array, &count, sizeof(gint32)));
    return {numbers, numbers + count};
}

GVariant* NewNumbers(const std::vector<gint32>& numbers)
{
    return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, numbers.data(), numbers.size(),
                                     sizeof(gint32));
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

const GDBusInterfaceVTable TDBusMenu::Table{OnCall, OnGet, nullptr, {}};

TDBusMenu::TDBusMenu(GDBusConnection* bus, const char* path, std::function<void()> onOpens,
                     std::function<void(const std::string& name)> onChosen)
    : m_onOpens(std::move(onOpens)), m_onChosen(std::move(onChosen)),
      m_menu(TMenuItem(), DeepestMenu), m_export(bus, path, Introspection, Table, this)
{
}

void TDBusMenu::Set(const TMenuItem& menu)
{
    TFlatMenu before = std::exchange(m_menu, TFlatMenu(menu, DeepestMenu));
    if (m_menu.IsSameShape(before))
        return TellStates(before);
    const auto used = static_cast<gint32>(before.Count()) - 1;
    const auto needed = static_cast<gint32>(m_menu.Count());
    // After the last number it begins anew: by then nobody remembers the first ones.
    const bool isRoom = m_first <= std::numeric_limits<gint32>::max() - used - needed;
    m_first = isRoom ? m_first + used : 1;
    m_export.Tell("LayoutUpdated", g_variant_new("(ui)", ++m_revision, 0));
}

// Of what a desktop knows from before.
void TDBusMenu::TellStates(const TFlatMenu& before) const
{
    TNumbers numbers;
    GVariantBuilder removed;
    g_variant_builder_init(&removed, G_VARIANT_TYPE("a(ias)"));
    for (std::size_t i = 0; i < m_menu.Count(); ++i) {
        if (m_menu.IsSameState(i, before))
            continue;
        numbers.push_back(Number(i));
        g_variant_builder_open(&removed, G_VARIANT_TYPE("(ias)"));
        g_variant_builder_add(&removed, "i", Number(i));
        g_variant_builder_open(&removed, G_VARIANT_TYPE("as"));
        for (const TProperty& property : Properties)
            if (const TVariant value(property.Value(m_menu, i)); !value)
                g_variant_builder_add(&removed, "s", property.Name);
        g_variant_builder_close(&removed);
        g_variant_builder_close(&removed);
    }
    GVariant* rest = g_variant_builder_end(&removed);
    if (numbers.empty())
        g_variant_unref(g_variant_ref_sink(rest));
    else
        m_export.Tell("ItemsPropertiesUpdated",
                      g_variant_new("(@a(ia{sv})@a(ias))", GroupProperties(numbers, {}), rest));
}

gint32 TDBusMenu::Number(std::size_t i) const
{
    return i == 0 ? 0 : m_first + static_cast<gint32>(i) - 1;
}

std::optional<std::size_t> TDBusMenu::Find(gint32 number) const
{
    if (number == 0)
        return 0;
    const auto i = static_cast<std::int64_t>(number) - m_first + 1;
    if (i < 1 || i >= static_cast<std::int64_t>(m_menu.Count()))
        return std::nullopt;
    return static_cast<std::size_t>(i);
}

// None wanted: all of them.
GVariant* TDBusMenu::PropertiesOf(std::size_t i, const TNames& wanted) const
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a{sv}"));
    for (const TProperty& property : Properties)
        if (wanted.empty() || std::ranges::find(wanted, property.Name) != wanted.end())
            if (GVariant* value = property.Value(m_menu, i))
                g_variant_builder_add(&builder, "{sv}", property.Name, value);
    return g_variant_builder_end(&builder);
}

GVariant* TDBusMenu::Layout(std::size_t i, int depth, const TNames& wanted) const
{
    GVariantBuilder below;
    g_variant_builder_init(&below, G_VARIANT_TYPE("av"));
    if (depth != 0)
        for (std::size_t next = i + 1; next < m_menu[i].End; next = m_menu[next].End) {
            GVariant* item = g_variant_new_variant(Layout(next, depth - 1, wanted));
            // In one piece: GLib keeps the memory of the many small ones for itself.
            g_variant_get_data(item);
            g_variant_builder_add_value(&below, item);
        }
    return g_variant_new("(i@a{sv}@av)", Number(i), PropertiesOf(i, wanted),
                         g_variant_builder_end(&below));
}

GVariant* TDBusMenu::GroupProperties(std::span<const gint32> numbers, const TNames& wanted) const
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a(ia{sv})"));
    for (const gint32 number : numbers)
        if (const auto i = Find(number))
            g_variant_builder_add(&builder, "(i@a{sv})", number, PropertiesOf(*i, wanted));
    return g_variant_builder_end(&builder);
}

GVariant* TDBusMenu::GetLayout(GVariant* arguments)
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

GVariant* TDBusMenu::GetGroupProperties(GVariant* arguments)
{
    TNumbers numbers = Numbers(Child(arguments, 0).get());
    if (numbers.empty()) // all of them
        for (std::size_t i = 0; i < m_menu.Count(); ++i)
            numbers.push_back(Number(i));
    const TVariant names = Child(arguments, 1);
    return g_variant_new("(@a(ia{sv}))", GroupProperties(numbers, Texts(names.get())));
}

GVariant* TDBusMenu::GetProperty(GVariant* arguments)
{
    gint32 number = 0;
    const char* name = nullptr;
    g_variant_get(arguments, "(i&s)", &number, &name);
    const auto i = Find(number);
    const auto property = std::ranges::find(Properties, std::string_view(name), &TProperty::Name);
    GVariant* value = i && property != std::end(Properties) ? property->Value(m_menu, *i) : nullptr;
    return value != nullptr ? g_variant_new("(v)", value) : nullptr;
}

GVariant* TDBusMenu::Event(GVariant* arguments)
{
    gint32 number = 0;
    const char* event = nullptr;
    g_variant_get_child(arguments, 0, "i", &number);
    g_variant_get_child(arguments, 1, "&s", &event);
    return Happens(number, event) ? g_variant_new("()") : nullptr;
}

GVariant* TDBusMenu::EventGroup(GVariant* arguments)
{
    TNumbers unknown;
    const TVariant events = Child(arguments, 0);
    for (gsize i = 0; i < g_variant_n_children(events.get()); ++i) {
        gint32 number = 0;
        const char* event = nullptr;
        const TVariant each = Child(events.get(), i);
        g_variant_get(each.get(), "(i&s@vu)", &number, &event, nullptr, nullptr);
        if (!Happens(number, event))
            unknown.push_back(number);
    }
    return g_variant_new("(@ai)", NewNumbers(unknown));
}

// The signal of a new layout is on its way before the answer, which therefore says that there is
// nothing to be asked for: lxqt-panel, told of it twice, waits for seconds.
GVariant* TDBusMenu::AboutToShow(GVariant* arguments)
{
    gint32 number = 0;
    g_variant_get(arguments, "(i)", &number);
    return Opens(number) ? g_variant_new("(b)", FALSE) : nullptr;
}

GVariant* TDBusMenu::AboutToShowGroup(GVariant* arguments)
{
    TNumbers unknown;
    for (const gint32 number : Numbers(Child(arguments, 0).get()))
        if (!Opens(number))
            unknown.push_back(number);
    return g_variant_new("(@ai@ai)", NewNumbers({}), NewNumbers(unknown));
}

bool TDBusMenu::Opens(gint32 number)
{
    if (number == 0)
        m_onOpens();
    return Find(number).has_value();
}

bool TDBusMenu::Happens(gint32 number, std::string_view event)
{
    const auto i = Find(number);
    if (i && event == "clicked" && !m_menu.HasMenuBelow(*i))
        m_chosen.emplace_back(m_menu.Name(*i));
    return i.has_value();
}

void TDBusMenu::TellChosen()
{
    const auto onChosen = m_onChosen;
    for (const std::string& name : std::exchange(m_chosen, {}))
        onChosen(name);
}

struct TDBusMenu::TMethod {
    std::string_view Name;
    GVariant* (TDBusMenu::*Answer)(GVariant* arguments);
};

const TDBusMenu::TMethod TDBusMenu::Methods[] = {
    {"GetLayout", &TDBusMenu::GetLayout},
    {"GetGroupProperties", &TDBusMenu::GetGroupProperties},
    {"GetProperty", &TDBusMenu::GetProperty},
    {"Event", &TDBusMenu::Event},
    {"EventGroup", &TDBusMenu::EventGroup},
    {"AboutToShow", &TDBusMenu::AboutToShow},
    {"AboutToShowGroup", &TDBusMenu::AboutToShowGroup},
};

// GLib has compared method and arguments with the description.
void TDBusMenu::OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* call, gpointer data)
{
    auto* self = static_cast<TDBusMenu*>(data);
    const auto* known = std::ranges::find(Methods, std::string_view(method), &TMethod::Name);
    if (GVariant* answer = (self->*known->Answer)(arguments))
        g_dbus_method_invocation_return_value(call, answer);
    else
        g_dbus_method_invocation_return_dbus_error(call, "org.freedesktop.DBus.Error.InvalidArgs",
                                                   "There is no such entry.");
    // Not before the desktop has its answer: what is chosen may take its time.
    self->TellChosen();
}

GVariant* TDBusMenu::OnGet(GDBusConnection*, const char*, const char*, const char*,
                           const char* property, GError**, gpointer)
{
    const std::string_view name = property;
    if (name == "Version")
        return g_variant_new_uint32(3);
    if (name == "IconThemePath")
        return g_variant_new_strv(nullptr, 0);
    return g_variant_new_string(name == "Status" ? "normal" : "ltr");
}

} // namespace murala
