#include "uBackground.h"

#include "uBitmap.h"
#include "uGLib.h"

#include <cstdio>
#include <cstdlib>

namespace murala
{

std::unique_ptr<TBackground> NewBackground(TSession session)
{
    switch (session) {
    case TSession::Gnome:
    case TSession::Cinnamon:
    case TSession::Mate:
        return NewSettingsBackground(session);
    case TSession::Plasma:
        return NewPlasmaBackground();
    case TSession::Xfce:
        return NewXfceBackground();
    case TSession::Lxde:
        return NewLxdeBackground();
    case TSession::Lxqt:
        return NewLxqtBackground();
    case TSession::Sway:
        return NewSwayBackground();
    case TSession::Enlightenment:
        return NewEnlightenmentBackground();
    case TSession::Wayland:
        return NewSwaybgBackground();
    case TSession::Other:
        break;
    }
    return NewUnnamedBackground();
}

std::string ColorToHexText(TColor color)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", ColorToPixel(color));
    return text;
}

std::optional<TColor> HexTextToColor(const std::string& text)
{
    if ((text.size() != 7 && text.size() != 13) || text[0] != '#' ||
        text.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string::npos)
        return std::nullopt;
    const std::size_t digits = (text.size() - 1) / 3;
    TColor color = 0;
    for (unsigned channel = 0; channel < 3; channel++) {
        const std::string high = text.substr(1 + channel * digits, 2);
        color |= static_cast<TColor>(std::strtoul(high.c_str(), nullptr, 16)) << (8U * channel);
    }
    return color;
}

} // namespace murala
