#include "uFileDialogs.h"

#include "uPath.h"
#include "uText.h"
#include "uWindowSystem.h"
#include "uWxText.h"

#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace murala
{

wxString OpenFilter(const std::vector<TFileKind>& kinds)
{
    wxString all, each;
    for (const TFileKind& kind : kinds)
        for (const std::string_view extension : kind.Extensions()) {
            const wxString pattern = "*" + ToWx(extension);
            all << (all.empty() ? "" : ";") << pattern;
            each << '|' << ToWx(kind.Caption) << " (" << pattern << ")|" << pattern;
        }
    return AnyCaseFilter("All (" + all + ")|" + all + each);
}

std::optional<std::string>
ChooseFileToSave(const std::string& extension,
                 const std::function<std::optional<std::string>(const std::string&)>& ask,
                 const std::function<bool(const std::string&)>& mayReplace)
{
    std::string path;
    while (const auto typed = ask(path)) {
        path = *typed;
        if (!SameTextAscii(NativePath(path).extension().string(), extension))
            path += extension;
        if (!FileExists(path) || mayReplace(path))
            return path;
    }
    return std::nullopt;
}

std::optional<std::string> AskWhereToSave(wxWindow& parent, const wxString& caption,
                                          const wxString& filter, const std::string& extension)
{
    const auto ask = [&](const std::string& before) -> std::optional<std::string> {
        wxFileDialog dialog(&parent, caption, ToWx(FolderPart(before)), ToWx(FileNamePart(before)),
                            AnyCaseFilter(filter), wxFD_SAVE);
        if (dialog.ShowModal() != wxID_OK)
            return std::nullopt;
        return dialog.GetPath().utf8_string();
    };
    const auto mayReplace = [&](const std::string& path) {
        const std::string question =
            FormatText("%s is there already. Do you want to replace it?", {path});
        return wxMessageBox(ToWx(question), "Murala",
                            wxYES_NO | wxNO_DEFAULT | wxICON_WARNING | wxCENTRE, &parent) == wxYES;
    };
    return ChooseFileToSave(extension, ask, mayReplace);
}

} // namespace murala
