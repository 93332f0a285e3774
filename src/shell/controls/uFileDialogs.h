// The system's dialog for a file to save. (For files to open the toolkit's own one is enough.)
#pragma once

#include <wx/string.h>

#include <functional>
#include <optional>
#include <string>

class wxWindow;

namespace murala
{

// Asks where a file is to be saved. The extension, e.g. ".bmp", is added to a name that lacks it;
// only then is the user asked whether a file of that name may be replaced. Nothing when the user
// cancels.
std::optional<std::string> AskWhereToSave(wxWindow& parent, const wxString& caption,
                                          const wxString& filter, const std::string& extension);

// The same with other questions: `ask` gets the path that was refused before, empty at first, and
// gives what the user has typed; `mayReplace` is asked about a file that is there.
std::optional<std::string>
ChooseFileToSave(const std::string& extension,
                 const std::function<std::optional<std::string>(const std::string& before)>& ask,
                 const std::function<bool(const std::string& path)>& mayReplace);

} // namespace murala
