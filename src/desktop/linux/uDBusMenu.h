// A menu that the desktop draws, told to it over D-Bus.
#pragma once

#include "uGLib.h"
#include "uMenuItem.h"

#include <libdbusmenu-glib/dbusmenu-glib.h>

#include <functional>
#include <string>
#include <vector>

namespace murala
{

class TDBusMenu
{
public:
    // At this path of the program's own connection to the session's bus. `onOpens` is told of the
    // menu and of every one below it.
    TDBusMenu(const char* path, std::function<void()> onOpens,
              std::function<void(const std::string& name)> onChosen);
    TDBusMenu(const TDBusMenu&) = delete;
    TDBusMenu& operator=(const TDBusMenu&) = delete;
    ~TDBusMenu();

    // What is as it was is not told again.
    void Set(const TMenuItem& menu);

private:
    void Build(DbusmenuMenuitem* parent, const TMenuItem& menu);
    static void OnOpens(DbusmenuMenuitem*, TDBusMenu* self) { self->m_onOpens(); }
    static void OnChosen(DbusmenuMenuitem* item, guint time, TDBusMenu* self);

    std::function<void()> m_onOpens;
    std::function<void(const std::string&)> m_onChosen;
    TGObject<DbusmenuServer> m_server;
    TGObject<DbusmenuMenuitem> m_root;
    TMenuItem m_menu;                       // as it was told
    std::vector<DbusmenuMenuitem*> m_items; // the root's, in the order of m_menu from top to bottom
};

} // namespace murala
