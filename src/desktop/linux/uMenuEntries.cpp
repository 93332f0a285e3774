#include "uMenuEntries.h"

#include "uDesktopEntry.h"
#include "uFolders.h"
#include "uPath.h"
#include "uProcess.h"
#include "uSafeFile.h"
#include "uSession.h"
#include "uShellIntegration.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr const char* CommandKey = "X-Murala-Command";
constexpr const char* ApplicationId = "murala-add.desktop";
constexpr const char* ActionGroup = "Desktop Action AddToMurala";

std::filesystem::path ApplicationsFolder()
{
    return UserDataFolder() / "applications";
}

std::string ApplicationFile()
{
    return PathText(ApplicationsFolder() / ApplicationId);
}

std::string ServiceMenuFile()
{
    return PathText(UserDataFolder() / "kio/servicemenus" / ApplicationId);
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

void UpdateApplicationCache()
{
    RunProgram({"update-desktop-database", "-q", PathText(ApplicationsFolder())});
}

// Makes what opens the type so far the user's choice.
void KeepDefault(const std::string& mimeType)
{
    const TGObject<GAppInfo> program(g_app_info_get_default_for_type(mimeType.c_str(), FALSE));
    if (program && g_strcmp0(g_app_info_get_id(program.get()), ApplicationId) != 0)
        g_app_info_set_as_default_for_type(program.get(), mimeType.c_str(), nullptr);
}

// From the cache GLib would take a program of the user's own folder before any of the system's:
// a double click would add the picture. KDE needs no cache, and goes by preference.
void RegisterApplication(const std::vector<std::string>& mimeTypes)
{
    if (RunningSession() == TSession::Plasma)
        return;
    std::ranges::for_each(mimeTypes, KeepDefault);
    UpdateApplicationCache();
}

bool WriteApplication(const std::vector<std::string>& mimeTypes, const std::string& command)
{
    TDesktopEntry entry = NewEntry(ApplicationFile(), mimeTypes, command);
    entry.Write("InitialPreference", "0"); // KDE's: the last choice for opening a picture
    const bool saved = entry.Save();
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
    UpdateApplicationCache();
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
