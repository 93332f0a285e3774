// Asks for the name of a file to save, and filters what is offered to open.
#pragma once

#include "uPictureFormats.h"

#include <wx/string.h>

#include <functional>
#include <optional>
#include <string>

class wxWindow;

namespace murala
{

// All kinds together, then every extension by itself.
wxString OpenFilter(const std::vector<TFileKind>& kinds);

// Asks where a file is to be saved. A name without the extension, e.g. ".bmp", gets it; only then
// is the user asked whether a file of that name may be replaced. Returns nothing when the user
// cancels.
std::optional<std::string> AskWhereToSave(wxWindow& parent, const wxString& caption,
                                          const wxString& filter, const std::string& extension);

// The same with other questions, for tests. `ask` is given the path that the user did not want to
// replace, empty at first, and returns what the user has typed; `mayReplace` is asked about a file
// that exists.
std::optional<std::string>
ChooseFileToSave(const std::string& extension,
                 const std::function<std::optional<std::string>(const std::string& before)>& ask,
                 const std::function<bool(const std::string& path)>& mayReplace);

} // namespace murala
