// A menu that the desktop draws, told to it over D-Bus (com.canonical.dbusmenu).
//
// There is no object for each entry: of ten thousand of these GLib keeps 20 MB for good, even when
// they are gone.
#pragma once

#include "uBusExport.h"
#include "uFlatMenu.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
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

private:
    using TNames = std::vector<std::string_view>;
    using TNumbers = std::vector<gint32>;
    struct TMethod;
    static const TMethod Methods[];
    static const GDBusInterfaceVTable Table;

    gint32 Number(std::size_t i) const;
    std::optional<std::size_t> Find(gint32 number) const;
    GVariant* PropertiesOf(std::size_t i, const TNames& wanted) const;
    GVariant* Layout(std::size_t i, int depth, const TNames& wanted) const;
    GVariant* GroupProperties(std::span<const gint32> numbers, const TNames& wanted) const;
    void TellStates(const TFlatMenu& before) const;

    // They take the arguments and give the answer, null when there is no such entry.
    GVariant* GetLayout(GVariant* arguments);
    GVariant* GetGroupProperties(GVariant* arguments);
    GVariant* GetProperty(GVariant* arguments);
    GVariant* Event(GVariant* arguments);
    GVariant* EventGroup(GVariant* arguments);
    GVariant* AboutToShow(GVariant* arguments);
    GVariant* AboutToShowGroup(GVariant* arguments);

    // False when there is no such entry.
    bool Opens(gint32 number);
    bool Happens(gint32 number, std::string_view event);
    void TellChosen();
    static void OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* call, gpointer data);
    static GVariant* OnGet(GDBusConnection*, const char*, const char*, const char*,
                           const char* property, GError**, gpointer data);

    std::function<void()> m_onOpens;
    std::function<void(const std::string&)> m_onChosen;
    TFlatMenu m_menu;   // as it was told
    gint32 m_first = 1; // number of the first entry; the menu itself has 0
    guint m_revision = 1;
    std::vector<std::string> m_chosen; // names, not told of yet
    TBusExport m_export;
};

} // namespace murala
