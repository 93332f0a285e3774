// The background of one kind of desktop.
#pragma once

#include "uColor.h"
#include "uSession.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace murala
{

enum class TTook {
    Yes,
    No,     // and it will not
    NotYet, // the desktop is not there, or too busy: to be tried again
};

// With what the user can do about it, where there is something.
using TOnTook = std::function<void(TTook took, const std::string& advice)>;

// None of the calls waits for another program.
class TBackground
{
public:
    virtual ~TBackground() = default;

    // Whether the desktop ignores a new picture whose file has the name of the one before.
    virtual bool GoesByNames() const { return true; }

    // `color` shows where the picture does not reach. `onTook` is called once, before this returns
    // or out of the main loop, perhaps when this object is gone.
    virtual void SetPicture(const std::string& path, TColor color, TOnTook onTook) = 0;

    // Whether it shows a picture of ours that was made for a screen of another size.
    virtual bool IsOutdated() { return false; }

    // Nothing when this desktop keeps no colour, or in a form of its own.
    virtual std::optional<TColor> Color() { return std::nullopt; }
    virtual void SetColor(TColor /*color*/) {}
};

std::unique_ptr<TBackground> NewBackground(TSession session);

// The kinds.
std::unique_ptr<TBackground> NewSettingsBackground(TSession session);
std::unique_ptr<TBackground> NewPlasmaBackground();
std::unique_ptr<TBackground> NewXfceBackground();
std::unique_ptr<TBackground> NewLxdeBackground();
std::unique_ptr<TBackground> NewLxqtBackground();
std::unique_ptr<TBackground> NewSwayBackground();
std::unique_ptr<TBackground> NewEnlightenmentBackground();
std::unique_ptr<TBackground> NewSwaybgBackground();
std::unique_ptr<TBackground> NewRootWindowBackground();
// Of a session that has no name: that of the program that draws the desktop, if one does.
std::unique_ptr<TBackground> NewUnnamedBackground();

// "#rrggbb"; the reader takes twelve digits, too.
std::string ColorToHexText(TColor color);
std::optional<TColor> HexTextToColor(const std::string& text);

} // namespace murala
