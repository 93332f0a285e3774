// The background of one kind of desktop.
#pragma once

#include "uBitmap.h"
#include "uSession.h"

#include <memory>
#include <optional>
#include <string>

namespace murala
{

class TBackground
{
public:
    virtual ~TBackground() = default;

    // Whether the desktop is set to this file and would not read it again if it were set again,
    // because it goes by names. Nothing when the desktop cannot be asked.
    virtual std::optional<bool> IsStuckTo(const std::string& path) = 0;
    // `color` shows where the picture does not reach.
    virtual bool SetPicture(const std::string& path, TColor color) = 0;

    // Nothing when this desktop keeps no colour, or in a form of its own.
    virtual std::optional<TColor> Color() = 0;
    virtual void SetColor(TColor color) = 0;
};

std::unique_ptr<TBackground> NewBackground(TSession session);

// The kinds.
std::unique_ptr<TBackground> NewSettingsBackground(TSession session);
std::unique_ptr<TBackground> NewPlasmaBackground();
std::unique_ptr<TBackground> NewXfceBackground();
std::unique_ptr<TBackground> NewFileManagerBackground(TSession session);
std::unique_ptr<TBackground> NewSwayBackground();
std::unique_ptr<TBackground> NewRootWindowBackground();

// "#rrggbb"; the reader takes twelve digits, too.
std::string ColorToHexText(TColor color);
std::optional<TColor> HexTextToColor(const std::string& text);

// The file's "file:" address, and back (empty when it is none; a plain path stays as it is).
std::string FileUri(const std::string& path);
std::string UriFile(const std::string& uri);

// Whether settings and messages, whose strings are UTF-8, can name the file as it is.
bool IsText(const std::string& path);

} // namespace murala
