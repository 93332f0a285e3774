// Which desktop the user's session runs.
#pragma once

namespace murala
{

enum class TSession {
    Gnome,
    Cinnamon,
    Mate,
    Plasma,
    Xfce,
    Lxde,
    Lxqt,
    Sway,
    Enlightenment,
    Wayland, // a compositor that leaves the background to a program
    Other,
};

TSession RunningSession();

} // namespace murala
