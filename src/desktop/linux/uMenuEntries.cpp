#include "uMenuEntries.h"

#include "uDesktopEntry.h"
#include "uFolders.h"
#include "uPath.h"
#include "uProcess.h"
#include "uSafeFile.h"
#include "uShellIntegration.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr const char* CommandKey = "X-Murala-Command";
constexpr const char* ActionGroup = "Desktop Action AddToMurala";

std::filesystem::path ApplicationsFolder()
{
    return UserDataFolder() / "applications";
}

std::string ApplicationFile()
{
    return PathText(ApplicationsFolder() / "murala-add.desktop");
}

std::string ServiceMenuFile()
{
    return PathText(UserDataFolder() / "kio/servicemenus/murala-add.desktop");
}

std::vector<std::filesystem::path> ScriptFiles()
{
    const std::filesystem::path verb = ShellVerb;
    return {UserDataFolder() / "nautilus/scripts" / verb, UserDataFolder() / "nemo/scripts" / verb,
            UserConfigFolder() / "caja/scripts" / verb};
}

void MakeExecutable(const std::filesystem::path& file)
{
    std::error_code error;
    std::filesystem::permissions(file, std::filesystem::perms::owner_exec,
                                 std::filesystem::perm_options::add, error);
}

std::vector<std::string> MimeTypes()
{
    return TDesktopEntry(ApplicationFile()).ReadList("MimeType");
}

// What both files say: a program that takes pictures, stands in no menu of programs, and has the
// verb as its action.
TDesktopEntry NewEntry(const std::string& file, const std::vector<std::string>& mimeTypes,
                       const std::string& command)
{
    TDesktopEntry entry(file);
    const std::string exec = ExecText(SplitCommand(command));
    entry.Write("Type", "Application");
    entry.Write("Name", ShellVerb);
    entry.Write("Exec", exec);
    entry.Write("Terminal", "false");
    entry.Write("NoDisplay", "true");
    entry.WriteList("MimeType", mimeTypes);
    entry.Write(CommandKey, command);
    entry.WriteList("Actions", {"AddToMurala"});
    entry.Write("Name", ShellVerb, ActionGroup);
    entry.Write("Exec", exec, ActionGroup);
    return entry;
}

// The desktops of the GNOME family take a program of the user's own folder before any of the
// system's, so that pictures would be added where they should be opened. KDE, which has its service
// menu, goes by preference, and by no cache.
void RegisterApplication(const std::vector<std::string>& mimeTypes)
{
    if (RunningSession() == TSession::Plasma)
        return;
    std::vector<TGObject<GAppInfo>> before;
    for (const std::string& type : mimeTypes)
        before.emplace_back(g_app_info_get_default_for_type(type.c_str(), FALSE));
    RunProgram({"update-desktop-database", "-q", PathText(ApplicationsFolder())});
    for (std::size_t i = 0; i < before.size(); i++)
        if (before[i] && g_app_info_get_id(before[i].get()) != std::string_view(ApplicationId))
            g_app_info_set_as_default_for_type(before[i].get(), mimeTypes[i].c_str(), nullptr);
}

bool WriteApplication(const std::vector<std::string>& mimeTypes, const std::string& command)
{
    const bool saved = NewEntry(ApplicationFile(), mimeTypes, command).Save();
    RegisterApplication(mimeTypes);
    return saved;
}

// KDE's file manager takes only its own kind of file, and that only when it may be executed.
void WriteServiceMenu(const std::vector<std::string>& mimeTypes, const std::string& command)
{
    TDesktopEntry entry = NewEntry(ServiceMenuFile(), mimeTypes, command);
    entry.Write("X-KDE-ServiceTypes", "KonqPopupMenu/Plugin");
    if (entry.Save())
        MakeExecutable(ServiceMenuFile());
}

void WriteScripts(const std::string& command)
{
    const TGText program(g_shell_quote(SplitCommand(command).Program.c_str()));
    const std::string script = "#!/bin/sh\nexec " + std::string(program.get()) + " \"$@\"\n";
    for (const auto& file : ScriptFiles()) {
        std::error_code error;
        std::filesystem::create_directories(file.parent_path(), error);
        try {
            ReplaceWholeFile(PathText(file), script, TFlush::ToSystemCache);
            MakeExecutable(file);
        } catch (const EFileError&) {
            // The other forms may do.
        }
    }
}

void DeleteAllFiles()
{
    DeleteFileIfPresent(ApplicationFile());
    DeleteFileIfPresent(ServiceMenuFile());
    for (const auto& script : ScriptFiles())
        DeleteFileIfPresent(PathText(script));
    RunProgram({"update-desktop-database", "-q", PathText(ApplicationsFolder())});
}

} // namespace

std::string MimeTypeOf(const std::string& extension)
{
    gboolean uncertain = FALSE;
    const TGText content(g_content_type_guess(("x" + extension).c_str(), nullptr, 0, &uncertain));
    if (uncertain != FALSE || g_content_type_is_unknown(content.get()) != FALSE)
        return "";
    const TGText mimeType(g_content_type_get_mime_type(content.get()));
    return mimeType ? mimeType.get() : "";
}

bool MenuEntryExists(const std::string& mimeType)
{
    return std::ranges::count(MimeTypes(), mimeType) != 0;
}

std::optional<std::string> ReadMenuEntry(const std::string& mimeType)
{
    if (!MenuEntryExists(mimeType))
        return std::nullopt;
    return TDesktopEntry(ApplicationFile()).Read(CommandKey);
}

bool WriteMenuEntry(const std::string& mimeType, const std::string& command)
{
    std::vector<std::string> mimeTypes = MimeTypes();
    if (std::ranges::count(mimeTypes, mimeType) == 0)
        mimeTypes.push_back(mimeType);
    WriteServiceMenu(mimeTypes, command);
    WriteScripts(command);
    return WriteApplication(mimeTypes, command);
}

void DeleteMenuEntry(const std::string& mimeType)
{
    std::vector<std::string> mimeTypes = MimeTypes();
    const std::string command = TDesktopEntry(ApplicationFile()).Read(CommandKey);
    if (std::erase(mimeTypes, mimeType) == 0)
        return;
    if (mimeTypes.empty())
        return DeleteAllFiles();
    WriteServiceMenu(mimeTypes, command);
    WriteApplication(mimeTypes, command);
}

} // namespace murala
