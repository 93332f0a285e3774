#include "uDBusMenu.h"

#include "uDoor.h"
#include "uWork.h"

#include <algorithm>
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

GVariant* NewNumbers(const std::vector<gint32>& numbers)
{
    return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, numbers.data(), numbers.size(),
                                     sizeof(gint32));
}

struct TQuestion {
    std::string_view Name;
    GVariant* (TToldMenu::*Answer)(GVariant* arguments) const;
};

constexpr TQuestion Questions[] = {
    {"GetLayout", &TToldMenu::GetLayout},
    {"GetGroupProperties", &TToldMenu::GetGroupProperties},
    {"GetProperty", &TToldMenu::GetProperty},
};

// What is thrown meanwhile is no such entry, either.
template<typename TAnswer>
void Return(GDBusMethodInvocation* call, const TAnswer& find)
{
    GVariant* answer = nullptr;
    NoThrow([&] { answer = find(); });
    if (answer != nullptr)
        g_dbus_method_invocation_return_value(call, answer);
    else
        g_dbus_method_invocation_return_dbus_error(call, "org.freedesktop.DBus.Error.InvalidArgs",
                                                   "There is no such entry.");
}

} // namespace

const GDBusInterfaceVTable TDBusMenu::Table{OnCall, OnGet, nullptr, {}};

TDBusMenu::TDBusMenu(GDBusConnection* bus, const char* path, std::function<void()> onOpens,
                     std::function<void(const std::string& name)> onChosen)
    : m_onOpens(std::move(onOpens)), m_onChosen(std::move(onChosen)),
      m_told(std::make_shared<TToldMenu>(TFlatMenu(TMenuItem(), DeepestMenu))),
      m_export(bus, path, Introspection, Table, this)
{
}

void TDBusMenu::Set(const TMenuItem& menu)
{
    const auto before = m_told;
    m_told = std::make_shared<TToldMenu>(before->Next(TFlatMenu(menu, DeepestMenu)));
    if (m_told->Revision() != before->Revision()) {
        const std::vector<gint32> changed = m_told->MenusChanged(*before);
        m_changed.insert(changed.begin(), changed.end());
        m_export.Tell("LayoutUpdated", g_variant_new("(ui)", m_told->Revision(), 0));
    }
    if (GVariant* changes = m_told->Changes(*before))
        m_export.Tell("ItemsPropertiesUpdated", changes);
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
    std::vector<gint32> unknown;
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
// nothing to be asked for: lxqt-panel, told of it twice, waits for seconds. But Plasma does not ask
// for the menus below, then, and of some only the first entries were told so far.
GVariant* TDBusMenu::AboutToShow(GVariant* arguments)
{
    gint32 number = 0;
    g_variant_get(arguments, "(i)", &number);
    if (!Opens(number))
        return nullptr;
    return g_variant_new("(b)", static_cast<gboolean>(HasNews(number)));
}

GVariant* TDBusMenu::AboutToShowGroup(GVariant* arguments)
{
    std::vector<gint32> unknown, changed;
    for (const gint32 number : NumbersOf(Child(arguments, 0).get()))
        if (!Opens(number))
            unknown.push_back(number);
        else if (HasNews(number))
            changed.push_back(number);
    return g_variant_new("(@ai@ai)", NewNumbers(changed), NewNumbers(unknown));
}

bool TDBusMenu::HasNews(gint32 number)
{
    const bool isChanged = m_changed.erase(number) > 0;
    const bool isNew = m_outline && m_outline->Shown.insert(number).second;
    return number != 0 && (isChanged || isNew);
}

void TDBusMenu::NoteAsked(GVariant* layout)
{
    gint32 number = 0, depth = 0;
    g_variant_get(layout, "(ii@as)", &number, &depth, nullptr);
    if (number == 0 && depth < 0)
        m_changed.clear();
    else
        m_changed.erase(number);
}

bool TDBusMenu::Opens(gint32 number)
{
    if (number == 0)
        m_onOpens();
    return m_told->Find(number).has_value();
}

bool TDBusMenu::Happens(gint32 number, std::string_view event)
{
    if (number == 0 && (event == "opened" || event == "closed"))
        m_isShown = event == "opened";
    const auto i = m_told->Find(number);
    if (i && event == "clicked" && !m_told->Menu().HasMenuBelow(*i))
        m_chosen.emplace_back(m_told->Menu().Name(*i));
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
    const std::string_view name = method;
    const auto told = self->m_told;
    const auto* question = std::ranges::find(Questions, name, &TQuestion::Name);
    if (name == "GetLayout")
        self->NoteAsked(arguments);
    if (name == "GetLayout" && told->IsForOutline(arguments)) {
        if (!self->m_outline)
            self->m_outline.emplace();
        Return(call, [&] { return told->GetOutline(arguments, *self->m_outline); });
    } else if (name == "GetLayout" && told->IsLarge(arguments)) {
        // The call holds its arguments.
        WorkAside([=] { Return(call, [&] { return told->GetLayout(arguments); }); }, [] {});
    } else if (question != std::end(Questions)) {
        Return(call, [&] { return ((*told).*question->Answer)(arguments); });
    } else {
        const auto* known = std::ranges::find(Methods, name, &TMethod::Name);
        Return(call, [&] { return (self->*known->Answer)(arguments); });
        NoThrow([&] { self->TellChosen(); });
    }
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
