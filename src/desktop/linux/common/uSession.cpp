#include "uSession.h"

#include "uPath.h"
#include "uText.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace murala
{

namespace
{

struct TSessionName {
    std::string_view Name;
    TSession Session;
};

// Names in XDG_CURRENT_DESKTOP and, of session files, in DESKTOP_SESSION.
constexpr TSessionName Names[] = {
    {"GNOME", TSession::Gnome},
    {"GNOME-Classic", TSession::Gnome},
    {"GNOME-Flashback", TSession::Gnome},
    {"ubuntu", TSession::Gnome},
    {"Unity", TSession::Gnome},
    {"Budgie", TSession::Gnome},
    {"budgie-desktop", TSession::Gnome},
    {"pop", TSession::Gnome},
    {"Pantheon", TSession::Gnome},
    {"X-Cinnamon", TSession::Cinnamon},
    {"Cinnamon", TSession::Cinnamon},
    {"MATE", TSession::Mate},
    {"KDE", TSession::Plasma},
    {"plasma", TSession::Plasma},
    {"plasmawayland", TSession::Plasma},
    {"plasmax11", TSession::Plasma},
    {"XFCE", TSession::Xfce},
    {"xubuntu", TSession::Xfce},
    {"LXDE", TSession::Lxde},
    {"LXDE-pi", TSession::Lxde},
    {"LXQt", TSession::Lxqt},
    {"sway", TSession::Sway},
    {"Enlightenment", TSession::Enlightenment},
    {"Hyprland", TSession::Wayland},
    {"river", TSession::Wayland},
    {"Wayfire", TSession::Wayland},
    {"labwc", TSession::Wayland},
    {"niri", TSession::Wayland},
    {"wlroots", TSession::Wayland},
};

// The variable that gives away which desktop a session without a name runs.
constexpr TSessionName Variables[] = {
    {"SWAYSOCK", TSession::Sway},
    {"KDE_FULL_SESSION", TSession::Plasma},
    {"MATE_DESKTOP_SESSION_ID", TSession::Mate},
    {"GNOME_DESKTOP_SESSION_ID", TSession::Gnome},
    {"WAYLAND_DISPLAY", TSession::Wayland},
};

std::string Variable(std::string_view name)
{
    const char* value = std::getenv(std::string(name).c_str());
    return value != nullptr ? value : "";
}

std::optional<TSession> FindByName(std::string_view name)
{
    const auto* found = std::ranges::find_if(
        Names, [&](const TSessionName& known) { return SameTextAscii(known.Name, name); });
    return found == std::end(Names) ? std::nullopt : std::optional(found->Session);
}

std::optional<TSession> FindInList(std::string_view names)
{
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(':'), names.size());
        if (const auto session = FindByName(names.substr(0, end)))
            return session;
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return std::nullopt;
}

} // namespace

TSession RunningSession()
{
    if (const auto session = FindInList(Variable("XDG_CURRENT_DESKTOP")))
        return *session;
    if (const auto session = FindByName(FileNamePart(Variable("DESKTOP_SESSION"))))
        return *session;
    for (const TSessionName& variable : Variables)
        if (!Variable(variable.Name).empty())
            return variable.Session;
    return TSession::Other;
}

} // namespace murala
