#include "uDBusMenu.h"

#include "uDoor.h"

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
// How many entries of the menus below one menu are told before they are opened. GNOME's extension
// sees whether a menu fits the screen before it asks for the others.
constexpr std::size_t MostUnopened = 200;
// How many entries may have gone between two that are still there; a bound to the search.
constexpr std::ptrdiff_t LongestGap = 128;

// "_" before the access key, where ours have "&".
std::string WithAccessKey(const std::string& caption)
{
    std::string label;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        const bool isDoubled = i + 1 < caption.size() && caption[i + 1] == '&';
        if (caption[i] == '_')
            label += "__";
        else if (caption[i] != '&')
            label += caption[i];
        else if (isDoubled)
            label += caption[++i];
        else
            label += '_';
    }
    return label;
}

// But for whether it is enabled. Panels know an entry as one that has a check box or has none.
bool LooksAs(const TMenuEntry& a, const TMenuEntry& b)
{
    return a.Target == b.Target && a.Checked == b.Checked && a.Caption == b.Caption;
}

GVariant* NewNumbers(const std::vector<gint32>& numbers)
{
    return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, numbers.data(), numbers.size(),
                                     sizeof(gint32));
}

std::vector<gint32> NumbersOf(GVariant* array)
{
    gsize count = 0;
    const auto* numbers =
        static_cast<const gint32*>(g_variant_get_fixed_array(array, &count, sizeof(gint32)));
    return {numbers, numbers + count};
}

// They live as long as the array.
std::vector<std::string_view> TextsOf(GVariant* array)
{
    std::vector<std::string_view> texts;
    GVariantIter iterator;
    g_variant_iter_init(&iterator, array);
    const char* text = nullptr;
    while (g_variant_iter_next(&iterator, "&s", &text) != FALSE)
        texts.emplace_back(text);
    return texts;
}

bool Has(const std::vector<std::string_view>& names, std::string_view name)
{
    return std::ranges::find(names, name) != names.end();
}

} // namespace

bool TDBusMenu::TNode::HasMenuBelow() const
{
    return Entry.MenuBelow() != nullptr && Depth < DeepestMenu;
}

// Null where it is as of an entry that says nothing of it.
struct TDBusMenu::TProperty {
    const char* Name;
    GVariant* (*Value)(const TNode& node);
};

const TDBusMenu::TProperty TDBusMenu::Properties[] = {
    {"type",
     [](const TNode& node) {
         return node.Entry.IsSeparator() ? g_variant_new_string("separator") : nullptr;
     }},
    {"label",
     [](const TNode& node) -> GVariant* {
         if (node.Entry.Caption.empty()) // a separator
             return nullptr;
         const std::string label = WithAccessKey(node.Entry.Caption);
         return g_variant_new_take_string(g_utf8_make_valid(label.c_str(), -1));
     }},
    {"enabled",
     [](const TNode& node) { return node.Entry.Enabled ? nullptr : g_variant_new_boolean(FALSE); }},
    {"toggle-type",
     [](const TNode& node) {
         return node.Entry.Checked ? g_variant_new_string("checkmark") : nullptr;
     }},
    {"toggle-state",
     [](const TNode& node) { return node.Entry.Checked ? g_variant_new_int32(1) : nullptr; }},
    {"children-display",
     [](const TNode& node) {
         return node.HasMenuBelow() ? g_variant_new_string("submenu") : nullptr;
     }},
};

const GDBusInterfaceVTable TDBusMenu::Table{OnCall, OnGet, nullptr, {}};

TDBusMenu::TDBusMenu(GDBusConnection* bus, const char* path, TTrayEvents& events)
    : m_events(events), m_export(bus, path, Introspection, Table, this)
{
    m_nodes[0].Entry.Target = TMenuBelow();
}

void TDBusMenu::Tell(TTrayModel& model)
{
    m_model = &model;
    TNews news;
    Update(0, std::numeric_limits<std::size_t>::max(), news);
    TellOf(news.Menus);
    if (news.Entries.empty())
        return;
    GVariantBuilder removed;
    g_variant_builder_init(&removed, G_VARIANT_TYPE("a(ias)"));
    const char* const enabled[] = {"enabled", nullptr};
    for (const gint32 number : news.Entries)
        if (m_nodes.at(number).Entry.Enabled)
            g_variant_builder_add(&removed, "(i^as)", number, enabled);
    m_export.Tell("ItemsPropertiesUpdated",
                  g_variant_new("(@a(ia{sv})a(ias))", GroupProperties(news.Entries, {}), &removed));
}

// Qt's panels read the entries of one menu at a time, and are told of each. MATE's reads all of
// them each time.
void TDBusMenu::TellOf(const TNumbers& menus)
{
    if (menus.empty())
        return;
    ++m_revision;
    for (const gint32 menu : m_isReadAtOnce ? TNumbers{0} : menus)
        m_export.Tell("LayoutUpdated", g_variant_new("(ui)", m_revision, menu));
}

// Asks the model for the entries of the menu, and of those below it, as far as they are told; of
// one that was not opened that is `most` of them.
void TDBusMenu::Update(gint32 menu, std::size_t most, TNews& news)
{
    TNode& node = m_nodes.at(menu);
    TMenuEntries entries = m_model->Children(*node.Entry.MenuBelow());
    const bool isOpened = node.IsOpened || (m_isReadAtOnce && m_nodes.at(0).IsOpened);
    if (!isOpened && entries.size() > most)
        entries.resize(most);
    const TNumbers before = std::exchange(node.Children, {});
    auto next = before.begin();
    const auto forgetUpTo = [&](TNumbers::const_iterator end) {
        std::for_each(next, end, [this](gint32 gone) { Forget(gone); });
        next = end;
    };
    for (TMenuEntry& entry : entries) {
        const auto end = next + std::min(LongestGap, before.end() - next);
        const auto known = std::find_if(
            next, end, [&](gint32 each) { return LooksAs(m_nodes.at(each).Entry, entry); });
        const bool isKnown = known != end;
        const gint32 number = isKnown ? *known : ++m_lastNumber;
        if (isKnown) {
            forgetUpTo(known);
            ++next;
        }
        TNode& below = m_nodes[number];
        if (isKnown && below.Entry.Enabled != entry.Enabled)
            news.Entries.push_back(number);
        below.Entry = std::move(entry);
        below.Depth = node.Depth + 1;
        node.Children.push_back(number);
    }
    forgetUpTo(before.end());
    if (node.Children != before)
        news.Menus.push_back(menu);
    for (const gint32 number : node.Children)
        if (m_nodes.at(number).HasMenuBelow())
            Update(number, std::max<std::size_t>(1, MostUnopened / node.Children.size()), news);
}

void TDBusMenu::Forget(gint32 number)
{
    const auto node = m_nodes.extract(number);
    for (const gint32 below : node.mapped().Children)
        Forget(below);
}

// Whether the menu has entries that were not told yet. Of the whole menu that is told before the
// answer, which is no, then: lxqt-panel, told of it twice, waits for seconds. Of a menu below,
// panels are told after the answer: Qt's take no notice of the first signal behind a yes.
bool TDBusMenu::Opens(gint32 number)
{
    TNode& node = m_nodes.at(number);
    const bool wasOpened = std::exchange(node.IsOpened, true);
    if (number == 0)
        m_events.TrayMenuOpens();
    if (number == 0 || wasOpened || !node.HasMenuBelow())
        return false;
    TNews news;
    Update(number, 0, news);
    m_opened.insert(m_opened.end(), news.Menus.begin(), news.Menus.end());
    return !news.Menus.empty();
}

bool TDBusMenu::Happens(gint32 number, std::string_view event)
{
    const auto node = m_nodes.find(number);
    if (node == m_nodes.end())
        return false;
    if (event == "clicked" && !node->second.HasMenuBelow())
        m_events.TrayMenuChosen(node->second.Entry.Target);
    return true;
}

// None wanted: all of them.
GVariant* TDBusMenu::PropertiesOf(const TNode& node, const TNames& wanted)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a{sv}"));
    for (const TProperty& property : Properties)
        if (wanted.empty() || Has(wanted, property.Name))
            if (GVariant* value = property.Value(node))
                g_variant_builder_add(&builder, "{sv}", property.Name, value);
    return g_variant_builder_end(&builder);
}

// GNOME's extension asks for all of the menu without its labels, and makes an entry that it is told
// the properties of again anew, closed: it is told them once.
GVariant* TDBusMenu::Layout(gint32 number, int depth, const TNames& wanted)
{
    TNode& node = m_nodes.at(number);
    GVariantBuilder below;
    g_variant_builder_init(&below, G_VARIANT_TYPE("av"));
    if (depth != 0)
        for (const gint32 each : node.Children) {
            GVariant* item = g_variant_new_variant(Layout(each, depth - 1, wanted));
            // In one piece: GLib keeps the memory of the many small ones for itself.
            if (m_nodes.at(each).HasMenuBelow())
                g_variant_get_data(item);
            g_variant_builder_add_value(&below, item);
        }
    const bool isGnome = !wanted.empty() && !Has(wanted, "label");
    const bool isKnown = isGnome && std::exchange(node.IsKnown, true);
    return g_variant_new("(i@a{sv}@av)", number, PropertiesOf(node, isKnown ? TNames{""} : wanted),
                         g_variant_builder_end(&below));
}

GVariant* TDBusMenu::GroupProperties(const TNumbers& numbers, const TNames& wanted) const
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a(ia{sv})"));
    for (const gint32 number : numbers)
        if (const auto node = m_nodes.find(number); node != m_nodes.end())
            g_variant_builder_add(&builder, "(i@a{sv})", number,
                                  PropertiesOf(node->second, wanted));
    return g_variant_builder_end(&builder);
}

// MATE's panel, which asks for this property, too, reads all of the menu when that is opened, and
// says nothing of the menus below.
GVariant* TDBusMenu::GetLayout(GVariant* arguments)
{
    gint32 number = 0, depth = 0;
    g_variant_get_child(arguments, 0, "i", &number);
    g_variant_get_child(arguments, 1, "i", &depth);
    const TVariant names = Child(arguments, 2);
    const TNames wanted = TextsOf(names.get());
    m_isReadAtOnce = m_isReadAtOnce || Has(wanted, "disposition");
    if (!m_nodes.contains(number))
        return nullptr;
    return g_variant_new("(u@(ia{sv}av))", m_revision, Layout(number, depth, wanted));
}

GVariant* TDBusMenu::GetGroupProperties(GVariant* arguments)
{
    TNumbers numbers = NumbersOf(Child(arguments, 0).get());
    if (numbers.empty()) // all of them
        for (const auto& [number, node] : m_nodes)
            numbers.push_back(number);
    const TVariant names = Child(arguments, 1);
    return g_variant_new("(@a(ia{sv}))", GroupProperties(numbers, TextsOf(names.get())));
}

GVariant* TDBusMenu::GetProperty(GVariant* arguments)
{
    gint32 number = 0;
    const char* name = nullptr;
    g_variant_get(arguments, "(i&s)", &number, &name);
    const auto node = m_nodes.find(number);
    const auto* property = std::ranges::find(Properties, std::string_view(name), &TProperty::Name);
    if (node == m_nodes.end() || property == std::end(Properties))
        return nullptr;
    GVariant* value = property->Value(node->second);
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

GVariant* TDBusMenu::AboutToShow(GVariant* arguments)
{
    gint32 number = 0;
    g_variant_get(arguments, "(i)", &number);
    if (!m_nodes.contains(number))
        return nullptr;
    return g_variant_new("(b)", static_cast<gboolean>(Opens(number)));
}

GVariant* TDBusMenu::AboutToShowGroup(GVariant* arguments)
{
    TNumbers unknown, changed;
    for (const gint32 number : NumbersOf(Child(arguments, 0).get()))
        if (!m_nodes.contains(number))
            unknown.push_back(number);
        else if (Opens(number))
            changed.push_back(number);
    return g_variant_new("(@ai@ai)", NewNumbers(changed), NewNumbers(unknown));
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
    GVariant* answer = nullptr;
    NoThrow([&] { answer = (self->*known->Answer)(arguments); });
    if (answer != nullptr)
        g_dbus_method_invocation_return_value(call, answer);
    else
        g_dbus_method_invocation_return_dbus_error(call, "org.freedesktop.DBus.Error.InvalidArgs",
                                                   "There is no such entry.");
    self->TellOf(std::exchange(self->m_opened, {}));
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
