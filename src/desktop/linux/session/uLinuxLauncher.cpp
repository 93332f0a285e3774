#include "uFileUri.h"
#include "uGLib.h"
#include "uLauncher.h"
#include "uMimeType.h"
#include "uPath.h"
#include "uProcess.h"
#include "uSession.h"
#include "uSessionBus.h"

#include <algorithm>
#include <sstream>
#include <unistd.h>

namespace murala
{

namespace
{

constexpr TShellResult FileNotFound = 2; // as Windows numbers it
constexpr TShellResult NoProgram = 31;
constexpr TShellResult Worked = 33;

constexpr TBusObject FileManager{"org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                 "org.freedesktop.FileManager1"};

struct TPanel {
    TSession Session;
    std::vector<std::string> Command;
};

// The first that is installed is taken.
const TPanel Panels[] = {
    {TSession::Gnome, {"gnome-control-center", "background"}},
    {TSession::Gnome, {"budgie-control-center", "background"}},
    {TSession::Gnome, {"unity-control-center", "appearance"}},
    {TSession::Cinnamon, {"cinnamon-settings", "backgrounds"}},
    {TSession::Mate, {"mate-appearance-properties", "--show-page=background"}},
    {TSession::Plasma, {"systemsettings", "kcm_wallpaper"}},
    {TSession::Plasma, {"systemsettings5"}},
    {TSession::Xfce, {"xfdesktop-settings"}},
    {TSession::Lxde, {"pcmanfm", "--desktop-pref"}},
    {TSession::Lxqt, {"pcmanfm-qt", "--desktop-pref=general"}},
};

const TPanel* FindPanel()
{
    const TSession session = RunningSession();
    const auto* found = std::ranges::find_if(Panels, [&](const TPanel& panel) {
        return panel.Session == session &&
               TGText(g_find_program_in_path(panel.Command[0].c_str())) != nullptr;
    });
    return found == std::end(Panels) ? nullptr : found;
}

// Programs that paint, by the beginnings of their names; viewers take pictures, too.
constexpr std::string_view Editors[] = {"gimp",
                                        "org.gimp",
                                        "org.kde.krita",
                                        "krita",
                                        "org.kde.kolourpaint",
                                        "com.github.maoschanz.drawing",
                                        "pinta",
                                        "com.github.PintaProject",
                                        "mtpaint",
                                        "lximage",
                                        "photoflare"};

bool OpenWithDefault(const std::string& uri)
{
    return g_app_info_launch_default_for_uri(uri.c_str(), nullptr, nullptr) != FALSE ||
           StartProgramAndLook({"xdg-open", uri}); // which may run for as long as the viewer does
}

TGObject<GAppInfo> FindEditor(const std::string& file)
{
    TGObject<GAppInfo> editor;
    std::size_t best = std::size(Editors);
    GList* programs = g_app_info_get_all_for_type(MimeTypeOf(ExtensionPart(file)).c_str());
    for (GList* each = programs; each != nullptr; each = each->next) {
        auto* program = static_cast<GAppInfo*>(each->data);
        const char* id = g_app_info_get_id(program);
        const auto* known = std::ranges::find_if(Editors, [&](std::string_view name) {
            return std::string_view(id != nullptr ? id : "").starts_with(name);
        });
        const auto rank = static_cast<std::size_t>(known - std::begin(Editors));
        if (rank < best) {
            best = rank;
            editor.reset(G_APP_INFO(g_object_ref(program)));
        }
    }
    g_list_free_full(programs, g_object_unref);
    return editor;
}

bool OpenWith(GAppInfo* program, const std::string& file)
{
    const TGObject<GFile> argument(g_file_new_for_path(file.c_str()));
    GList files{argument.get(), nullptr, nullptr};
    return g_app_info_launch(program, &files, nullptr, nullptr) != FALSE;
}

// The file manager shows a folder's content, or a file marked in its folder.
bool ShowInFileManager(const std::string& path)
{
    std::error_code error;
    const bool isFolder = std::filesystem::is_directory(NativePath(path), error);
    GVariantBuilder uris;
    g_variant_builder_init(&uris, G_VARIANT_TYPE("as"));
    g_variant_builder_add(&uris, "s", FileUri(path).c_str());
    return CallSessionBus(FileManager, isFolder ? "ShowFolders" : "ShowItems",
                          g_variant_new("(ass)", &uris, "")) ||
           OpenWithDefault(FileUri(isFolder ? path : FolderPart(path)));
}

// The quoted name may contain quotation marks: it ends at the last one.
std::vector<std::string> SplitParameters(const std::string& parameters)
{
    std::vector<std::string> split;
    std::size_t rest = 0;
    if (parameters.starts_with('"')) {
        rest = parameters.rfind('"');
        split.push_back(parameters.substr(1, rest - 1));
        rest++;
    }
    std::istringstream words(parameters.substr(rest));
    for (std::string word; words >> word;)
        split.push_back(word);
    return split;
}

bool IsProgram(const std::string& file)
{
    std::error_code error;
    return std::filesystem::is_regular_file(NativePath(file), error) &&
           access(file.c_str(), X_OK) == 0;
}

class TLinuxLauncher : public TLauncher
{
public:
    TShellResult Execute(TShellVerb verb, const std::string& file,
                         const std::string& parameters) override
    {
        std::error_code error;
        const auto path = std::filesystem::absolute(NativePath(file), error);
        if (error || !std::filesystem::exists(path, error))
            return FileNotFound;
        const TOrdinaryPriority priority;
        return Run(verb, PathText(path), parameters) ? Worked : NoProgram;
    }

    bool HasDisplayProperties() override { return FindPanel() != nullptr; }

    void OpenDisplayProperties() override
    {
        if (const TPanel* panel = FindPanel())
            StartProgram(panel->Command);
    }

private:
    static bool Run(TShellVerb verb, const std::string& file, const std::string& parameters)
    {
        if (verb == TShellVerb::Explore)
            return ShowInFileManager(file);
        if (verb == TShellVerb::Edit)
            if (const auto editor = FindEditor(file))
                return OpenWith(editor.get(), file);
        if (parameters.empty())
            return OpenWithDefault(FileUri(file));
        std::vector<std::string> command = SplitParameters(parameters);
        command.insert(command.begin(), file);
        return IsProgram(file) && StartProgram(command);
    }
};

} // namespace

std::unique_ptr<TLauncher> NewLauncher()
{
    return std::make_unique<TLinuxLauncher>();
}

} // namespace murala
