#include "uDBusMenu.h"

#include "uDoor.h"
#include "uText.h"

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
<method name="Event"><arg type="i" direction="in"/><arg type="s" direction="in"/>
<arg type="v" direction="in"/><arg type="u" direction="in"/></method>
<method name="EventGroup"><arg type="a(isvu)" direction="in"/><arg type="ai" direction="out"/>
</method>
<method name="AboutToShow"><arg type="i" direction="in"/><arg type="b" direction="out"/></method>
<method name="AboutToShowGroup"><arg type="ai" direction="in"/><arg type="ai" direction="out"/>
<arg type="ai" direction="out"/></method>
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
    const std::string marked = ReplaceAll(ReplaceAll(caption, "_", "__"), "&&", "\1");
    return ReplaceAll(ReplaceAll(marked, "&", "_"), "\1", "&");
}

bool LooksAs(const TMenuEntry& a, const TMenuEntry& b)
{
    return a.Target == b.Target && a.Caption == b.Caption && a.Enabled == b.Enabled &&
           a.Checked == b.Checked;
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
    gsize count = 0;
    const std::unique_ptr<const char*, TFreeBy<g_free>> texts(g_variant_get_strv(array, &count));
    return {texts.get(), texts.get() + count};
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

const GDBusInterfaceVTable TDBusMenu::Table{OnCall, OnGet, nullptr, {}};

TDBusMenu::TDBusMenu(GDBusConnection* bus, const char* path, TTrayEvents& events)
    : m_events(events), m_export(bus, path, Introspection, Table, this)
{
    m_nodes[0].Entry.Target = TMenuBelow();
}

void TDBusMenu::Tell(TTrayModel& model)
{
    m_model = &model;
    TNumbers changed;
    Update(0, std::numeric_limits<std::size_t>::max(), changed);
    TellOf(changed);
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
// one that was not opened that is `most` of them. Adds the menus with other entries to `changed`.
void TDBusMenu::Update(gint32 menu, std::size_t most, TNumbers& changed)
{
    TNode& node = m_nodes.at(menu);
    TMenuEntries entries = m_model->Children(*node.Entry.MenuBelow());
    const bool isOpened = node.IsOpened || (m_isReadAtOnce && m_nodes.at(0).IsOpened);
    if (!isOpened && entries.size() > most)
        entries.resize(most);
    const TNumbers before = std::exchange(node.Children, {});
    auto next = before.begin();
    const auto forgetUpTo = [&](TNumbers::const_iterator end) {
        while (next != end)
            Forget(*next++);
    };
    for (TMenuEntry& entry : entries) {
        const auto end = next + std::min(LongestGap, before.end() - next);
        const auto known = std::find_if(
            next, end, [&](gint32 each) { return LooksAs(m_nodes.at(each).Entry, entry); });
        if (known != end) {
            forgetUpTo(known);
            node.Children.push_back(*next++);
        } else {
            node.Children.push_back(++m_lastNumber);
            TNode& below = m_nodes[m_lastNumber];
            below.Entry = std::move(entry);
            below.Depth = node.Depth + 1;
        }
    }
    forgetUpTo(before.end());
    if (node.Children != before)
        changed.push_back(menu);
    for (const gint32 number : node.Children)
        if (m_nodes.at(number).HasMenuBelow())
            Update(number, std::max<std::size_t>(1, MostUnopened / node.Children.size()), changed);
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
    TNumbers changed;
    Update(number, 0, changed);
    m_opened.insert(m_opened.end(), changed.begin(), changed.end());
    return !changed.empty();
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

// None wanted: all of them. What is as usual is not said.
GVariant* TDBusMenu::PropertiesOf(const TNode& node, const TNames& wanted)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a{sv}"));
    const auto add = [&](bool isSaid, const char* name, const auto& newValue) {
        if (isSaid && (wanted.empty() || Has(wanted, name)))
            g_variant_builder_add(&builder, "{sv}", name, newValue());
    };
    const TMenuEntry& entry = node.Entry;
    add(entry.IsSeparator(), "type", [] { return g_variant_new_string("separator"); });
    add(!entry.Caption.empty(), "label", [&] {
        const std::string label = WithAccessKey(entry.Caption);
        return g_variant_new_take_string(g_utf8_make_valid(label.c_str(), -1));
    });
    add(!entry.Enabled, "enabled", [] { return g_variant_new_boolean(FALSE); });
    add(entry.Checked, "toggle-type", [] { return g_variant_new_string("checkmark"); });
    add(entry.Checked, "toggle-state", [] { return g_variant_new_int32(1); });
    add(node.HasMenuBelow(), "children-display", [] { return g_variant_new_string("submenu"); });
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
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a(ia{sv})"));
    for (const gint32 number : numbers)
        if (const auto node = m_nodes.find(number); node != m_nodes.end())
            g_variant_builder_add(&builder, "(i@a{sv})", number,
                                  PropertiesOf(node->second, TextsOf(names.get())));
    return g_variant_new("(a(ia{sv}))", &builder);
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
