// Commands on files in the forms that file managers read: a service menu (Dolphin, Konqueror), an
// action (Nemo; PCManFM, PCManFM-Qt), an entry of "Send To" (Thunar), and scripts (Nautilus, Caja),
// which are offered for every file and pass on those of our types. None of them is registered as an
// application for the types: where there is no other, it would open such files. Thunar's custom
// actions are not used: they share one file with the user's own, and a running Thunar overwrites
// it.
#include "uDesktopEntry.h"
#include "uFileMenu.h"
#include "uFolders.h"
#include "uMimeType.h"
#include "uPath.h"
#include "uPictureFormats.h"
#include "uSafeFile.h"

#include <algorithm>
#include <cctype>

namespace murala
{

namespace
{

constexpr const char* EntryName = "murala-add.desktop";
constexpr const char* ActionId = "AddToMurala";

using TNames = std::vector<std::string>;

std::string ServiceMenuFile()
{
    return PathText(UserDataFolder() / "kio/servicemenus" / EntryName);
}

std::string SendToFile()
{
    return PathText(UserDataFolder() / "Thunar/sendto" / EntryName);
}

std::string ManagerActionFile()
{
    return PathText(UserDataFolder() / "file-manager/actions" / EntryName);
}

std::string NemoActionFile()
{
    return PathText(UserDataFolder() / "nemo/actions/murala-add.nemo_action");
}

TNames ScriptFiles(const TFileCommand& command)
{
    return {PathText(UserDataFolder() / "nautilus/scripts" / command.Verb),
            PathText(UserConfigFolder() / "caja/scripts" / command.Verb)};
}

void MakeExecutable(const std::string& file)
{
    std::error_code error;
    std::filesystem::permissions(file, std::filesystem::perms::owner_exec,
                                 std::filesystem::perm_options::add, error);
}

TNames MimeTypes(const TFileCommand& command)
{
    TNames types;
    for (const std::string& extension : command.Extensions)
        if (std::string type = MimeTypeOf(extension); !type.empty())
            types.push_back(std::move(type));
    return types;
}

std::string ExecOnFiles(const TFileCommand& command)
{
    return ExecText({command.Program, {}}) + " %F";
}

// The keys that an entry for a service menu and one for "Send To" share.
TDesktopEntry NewEntry(const std::string& file, const TFileCommand& command)
{
    TDesktopEntry entry(file);
    entry.Write("Type", "Application");
    entry.Write("Name", command.Verb);
    entry.Write("Exec", ExecOnFiles(command));
    entry.Write("Terminal", "false");
    entry.WriteList("MimeType", MimeTypes(command));
    return entry;
}

void WriteSendTo(const TFileCommand& command)
{
    NewEntry(SendToFile(), command).Save();
}

// KDE's file manager takes only its own kind of file, and that only when it may be executed.
void WriteServiceMenu(const TFileCommand& command)
{
    TDesktopEntry entry = NewEntry(ServiceMenuFile(), command);
    const std::string group = std::string("Desktop Action ") + ActionId;
    entry.Write("X-KDE-ServiceTypes", "KonqPopupMenu/Plugin");
    entry.WriteList("Actions", {ActionId});
    entry.Write("Name", command.Verb, group.c_str());
    entry.Write("Exec", ExecOnFiles(command), group.c_str());
    if (entry.Save())
        MakeExecutable(ServiceMenuFile());
}

void WriteManagerAction(const TFileCommand& command)
{
    constexpr const char* profile = "X-Action-Profile add";
    TDesktopEntry entry(ManagerActionFile());
    entry.Write("Type", "Action");
    entry.Write("Name", command.Verb);
    entry.WriteList("Profiles", {"add"});
    entry.WriteList("MimeTypes", MimeTypes(command), profile);
    entry.Write("Exec", ExecOnFiles(command), profile);
    entry.Save();
}

void WriteNemoAction(const TFileCommand& command)
{
    constexpr const char* group = "Nemo Action";
    TDesktopEntry entry(NemoActionFile());
    entry.Write("Name", command.Verb, group);
    entry.Write("Exec", ExecOnFiles(command), group);
    entry.Write("Selection", "notnone", group);
    entry.Write("Quote", "double", group);
    entry.WriteList("Mimetypes", MimeTypes(command), group);
    entry.Save();
}

// A shell pattern for names that end so in any letter case.
std::string EndPattern(const std::string& extension)
{
    std::string pattern = "*";
    for (const char letter : extension) {
        const auto upper = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
        pattern += upper == letter ? std::string(1, letter) : std::string{'[', letter, upper, ']'};
    }
    return pattern;
}

std::string Script(const TFileCommand& command)
{
    std::string patterns;
    for (const std::string& usual : command.Extensions)
        for (const std::string& extension : PictureExtensionsLike(usual)) // as for the types
            patterns += (patterns.empty() ? "" : " | ") + EndPattern(extension);
    const TGText program(g_shell_quote(command.Program.c_str()));
    // The names are read from a variable: in the arguments Caja drops "%" and the letter behind it.
    return "#!/bin/sh\n"
           "lines=$CAJA_SCRIPT_SELECTED_FILE_PATHS\n"
           "lines=${lines:-$NAUTILUS_SCRIPT_SELECTED_FILE_PATHS}\n"
           "lines=${lines:-$NEMO_SCRIPT_SELECTED_FILE_PATHS}\n"
           "if [ -n \"$lines\" ]; then\n"
           "    set -f\n"
           "    IFS='\n'\n"
           "    set -- $lines\n"
           "    unset IFS\n"
           "fi\n"
           "missing=\n"
           "for file do\n"
           "    shift\n"
           "    case $file in\n"
           "    " +
           patterns +
           ") if [ -f \"$file\" ]; then set -- \"$@\" \"$file\"\n"
           "       elif [ ! -e \"$file\" ]; then missing=\"$missing $file\"; fi ;;\n"
           "    esac\n"
           "done\n"
           "if [ -n \"$missing\" ]; then\n"
           "    notify-send Murala \"Not found:$missing\" || echo \"Murala: not found:$missing\" "
           ">&2\n"
           "fi\n"
           "[ $# -eq 0 ] || exec " +
           program.get() + " \"$@\"\n";
}

void WriteScripts(const TFileCommand& command)
{
    const std::string script = Script(command);
    for (const std::string& file : ScriptFiles(command)) {
        std::error_code error;
        std::filesystem::create_directories(FolderPart(file), error);
        try {
            ReplaceWholeFile(file, script, TFlush::ToSystemCache);
            MakeExecutable(file);
        } catch (const EFileError&) {
            // The user may have another of the file managers.
        }
    }
}

class TLinuxFileMenu : public TFileMenu
{
public:
    void AddShellCommand(const TFileCommand& command) override
    {
        WriteServiceMenu(command);
        WriteSendTo(command);
        WriteManagerAction(command);
        WriteNemoAction(command);
        WriteScripts(command);
    }

    void RemoveShellCommand(const TFileCommand& command) override
    {
        TNames files = ScriptFiles(command);
        files.insert(files.end(),
                     {ServiceMenuFile(), SendToFile(), ManagerActionFile(), NemoActionFile()});
        std::ranges::for_each(files, DeleteFileIfPresent);
    }

    bool ShellCommandExists(const TFileCommand& command) override
    {
        const TNames types = TDesktopEntry(SendToFile()).ReadList("MimeType");
        return std::ranges::all_of(MimeTypes(command), [&](const std::string& type) {
            return std::ranges::count(types, type) != 0;
        });
    }
};

} // namespace

std::unique_ptr<TFileMenu> NewFileMenu()
{
    return std::make_unique<TLinuxFileMenu>();
}

} // namespace murala
