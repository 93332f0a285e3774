// The verb "Add to Murala" on files of a MIME type, in the forms that file managers read: an
// application with an action (all of them, below "Open with"), a service menu (Dolphin, Konqueror)
// and scripts (Nautilus, Nemo, Caja). Thunar's custom actions are left out: they lie in one file
// together with the user's own, which a running Thunar writes back.
#pragma once

#include <optional>
#include <string>

namespace murala
{

// The file type that the session knows the extension by; empty when it knows none.
std::string MimeTypeOf(const std::string& extension);

bool MenuEntryExists(const std::string& mimeType);
// The command as in the registry; it is the same for all types.
std::optional<std::string> ReadMenuEntry(const std::string& mimeType);
bool WriteMenuEntry(const std::string& mimeType, const std::string& command);
// The files go with the last type.
void DeleteMenuEntry(const std::string& mimeType);

} // namespace murala
