#include "uDBusMenu.h"

#include "uText.h"

namespace murala
{

namespace
{

constexpr const char* NameKey = "murala-name";

// "_" before the access key, where ours have "&".
std::string Label(const std::string& caption)
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

// On the bus there is only UTF-8.
std::string Utf8(const std::string& text)
{
    const TGText valid(g_utf8_make_valid(text.c_str(), static_cast<gssize>(text.size())));
    return valid.get();
}

void SetState(DbusmenuMenuitem* item, const TMenuItem& from)
{
    // Enabled is what entries are that say nothing: thousands of them then take less memory.
    if (!from.Enabled || dbusmenu_menuitem_property_exist(item, DBUSMENU_MENUITEM_PROP_ENABLED))
        dbusmenu_menuitem_property_set_bool(item, DBUSMENU_MENUITEM_PROP_ENABLED, from.Enabled);
    if (from.Checked) {
        dbusmenu_menuitem_property_set(item, DBUSMENU_MENUITEM_PROP_TOGGLE_TYPE,
                                       DBUSMENU_MENUITEM_TOGGLE_CHECK);
        dbusmenu_menuitem_property_set_int(item, DBUSMENU_MENUITEM_PROP_TOGGLE_STATE,
                                           DBUSMENU_MENUITEM_TOGGLE_STATE_CHECKED);
    } else {
        dbusmenu_menuitem_property_remove(item, DBUSMENU_MENUITEM_PROP_TOGGLE_STATE);
        dbusmenu_menuitem_property_remove(item, DBUSMENU_MENUITEM_PROP_TOGGLE_TYPE);
    }
}

// Whether nothing but states differs.
bool IsSameShape(const TMenuItem& a, const TMenuItem& b)
{
    if (a.Items.size() != b.Items.size() || a.Name != b.Name || a.Caption != b.Caption)
        return false;
    for (std::size_t i = 0; i < a.Items.size(); ++i)
        if (!IsSameShape(a.Items[i], b.Items[i]))
            return false;
    return true;
}

void ForEachItem(const TMenuItem& menu, const std::function<void(const TMenuItem&)>& handle)
{
    for (const TMenuItem& item : menu.Items) {
        handle(item);
        ForEachItem(item, handle);
    }
}

} // namespace

TDBusMenu::TDBusMenu(const char* path, std::function<void()> onOpens,
                     std::function<void(const std::string& name)> onChosen)
    : m_onOpens(std::move(onOpens)), m_onChosen(std::move(onChosen)),
      m_server(dbusmenu_server_new(path)), m_root(dbusmenu_menuitem_new())
{
    g_signal_connect(m_root.get(), DBUSMENU_MENUITEM_SIGNAL_ABOUT_TO_SHOW, G_CALLBACK(OnOpens),
                     this);
    dbusmenu_server_set_root(m_server.get(), m_root.get());
}

TDBusMenu::~TDBusMenu()
{
    g_signal_handlers_disconnect_by_data(m_root.get(), this);
    for (DbusmenuMenuitem* item : m_items)
        g_signal_handlers_disconnect_by_data(item, this);
}

void TDBusMenu::Set(const TMenuItem& menu)
{
    if (!m_items.empty() && IsSameShape(m_menu, menu)) {
        std::size_t next = 0;
        ForEachItem(menu, [&](const TMenuItem& item) { SetState(m_items[next++], item); });
    } else {
        for (DbusmenuMenuitem* item : m_items)
            g_signal_handlers_disconnect_by_data(item, this);
        m_items.clear();
        // The root stays: a desktop that is about to show it holds on to it.
        GList* before = dbusmenu_menuitem_take_children(m_root.get());
        g_list_free_full(before, g_object_unref);
        Build(m_root.get(), menu);
    }
    m_menu = menu;
}

void TDBusMenu::Build(DbusmenuMenuitem* parent, const TMenuItem& menu)
{
    for (const TMenuItem& from : menu.Items) {
        const TGObject<DbusmenuMenuitem> item(dbusmenu_menuitem_new());
        m_items.push_back(item.get());
        if (from.IsSeparator())
            dbusmenu_menuitem_property_set(item.get(), DBUSMENU_MENUITEM_PROP_TYPE, "separator");
        else
            dbusmenu_menuitem_property_set(item.get(), DBUSMENU_MENUITEM_PROP_LABEL,
                                           Utf8(Label(from.Caption)).c_str());
        SetState(item.get(), from);
        g_object_set_data_full(G_OBJECT(item.get()), NameKey, g_strdup(from.Name.c_str()), g_free);
        g_signal_connect(item.get(), DBUSMENU_MENUITEM_SIGNAL_ITEM_ACTIVATED, G_CALLBACK(OnChosen),
                         this);
        if (!from.Items.empty())
            g_signal_connect(item.get(), DBUSMENU_MENUITEM_SIGNAL_ABOUT_TO_SHOW,
                             G_CALLBACK(OnOpens), this);
        Build(item.get(), from);
        dbusmenu_menuitem_child_append(parent, item.get());
    }
}

void TDBusMenu::OnChosen(DbusmenuMenuitem* item, guint /*time*/, TDBusMenu* self)
{
    const auto* name = static_cast<const char*>(g_object_get_data(G_OBJECT(item), NameKey));
    self->m_onChosen(std::string(name));
}

} // namespace murala
