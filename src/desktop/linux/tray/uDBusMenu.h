// The tray's menu for the desktops that draw it: told to them over D-Bus (com.canonical.dbusmenu).
//
// Panels make something of every entry that they are told. So of a menu that was not opened yet
// they are told the first entries only, and the others when it is opened.
#pragma once

#include "uBusExport.h"
#include "uTrayIcon.h"

#include <map>
#include <string_view>
#include <vector>

namespace murala
{

class TDBusMenu
{
public:
    // `events` outlives it.
    TDBusMenu(GDBusConnection* bus, const char* path, TTrayEvents& events);

    // Tells what has changed since the last time. The model outlives this.
    void Tell(TTrayModel& model);

private:
    // Desktops keep what they were told: an entry keeps its number as long as it looks the same,
    // and no other one ever gets it.
    struct TNode {
        TMenuEntry Entry;
        int Depth = 0;
        std::vector<gint32> Children; // as far as it was told
        bool IsOpened = false;
        bool IsKnown = false; // to GNOME's extension
        bool HasMenuBelow() const;
    };
    using TNumbers = std::vector<gint32>;
    using TNames = std::vector<std::string_view>;
    struct TMethod;
    static const TMethod Methods[];
    static const GDBusInterfaceVTable Table;

    // They take the arguments and give the answer, null when there is no such entry.
    GVariant* GetLayout(GVariant* arguments);
    GVariant* GetGroupProperties(GVariant* arguments);
    GVariant* Event(GVariant* arguments);
    GVariant* EventGroup(GVariant* arguments);
    GVariant* AboutToShow(GVariant* arguments);
    GVariant* AboutToShowGroup(GVariant* arguments);
    static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* call, gpointer data);
    static GVariant* OnGet(GDBusConnection*, const char*, const char*, const char*,
                           const char* property, GError**, gpointer data);

    void Update(gint32 menu, std::size_t most, TNumbers& changed);
    void Forget(gint32 number);
    void TellOf(const TNumbers& menus);
    bool Opens(gint32 number);
    bool Happens(gint32 number, std::string_view event);
    GVariant* Layout(gint32 number, int depth, const TNames& wanted);
    static GVariant* PropertiesOf(const TNode& node, const TNames& wanted);

    TTrayEvents& m_events;
    TTrayModel* m_model = nullptr;
    std::map<gint32, TNode> m_nodes{{0, {}}}; // 0 is the menu itself
    gint32 m_lastNumber = 0;
    guint m_revision = 1;
    bool m_isReadAtOnce = false; // by a panel that does not say which menu is opened
    TNumbers m_opened;           // not told of yet
    TBusExport m_export;
};

} // namespace murala
