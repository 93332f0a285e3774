// A menu that the desktop draws, told to it over D-Bus (com.canonical.dbusmenu).
//
// There is no object for each entry: of ten thousand of these GLib keeps 20 MB for good, even when
// they are gone.
#pragma once

#include "uBusExport.h"
#include "uMenuItem.h"
#include "uToldMenu.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

class TDBusMenu
{
public:
    // `onOpens` is told when the menu is about to be shown. `onChosen` may end this.
    TDBusMenu(GDBusConnection* bus, const char* path, std::function<void()> onOpens,
              std::function<void(const std::string& name)> onChosen);

    // What is as it was is not told again. A number that was given to an entry never comes to stand
    // for another one: desktops keep what they were told.
    void Set(const TMenuItem& menu);
    bool IsShown() const { return m_isShown; }

private:
    struct TMethod;
    static const TMethod Methods[];
    static const GDBusInterfaceVTable Table;

    // They take the arguments and give the answer, null when there is no such entry.
    GVariant* Event(GVariant* arguments);
    GVariant* EventGroup(GVariant* arguments);
    GVariant* AboutToShow(GVariant* arguments);
    GVariant* AboutToShowGroup(GVariant* arguments);

    // False when there is no such entry.
    bool Opens(gint32 number);
    // Whether more is to be told of a menu that is about to be shown. Once.
    bool HasNews(gint32 number);
    void NoteAsked(GVariant* layout);
    bool Happens(gint32 number, std::string_view event);
    void TellChosen();
    static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* call, gpointer data);
    static GVariant* OnGet(GDBusConnection*, const char*, const char*, const char*,
                           const char* property, GError**, gpointer data);

    std::function<void()> m_onOpens;
    std::function<void(const std::string&)> m_onChosen;
    std::shared_ptr<const TToldMenu> m_told;
    std::optional<TToldMenu::TOutline> m_outline; // that a desktop asked for
    std::set<gint32> m_changed;                   // menus, not asked for since then
    std::vector<std::string> m_chosen;            // names, not told of yet
    bool m_isShown = false;
    TBusExport m_export;
};

} // namespace murala
