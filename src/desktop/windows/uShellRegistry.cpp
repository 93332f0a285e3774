#include "uShellRegistry.h"

#include "uAutostart.h"
#include "uFileMenu.h"
#include "uFileQueue.h"
#include "uProgramFolder.h"

#include <windows.h>

#include <shlobj.h>

#include <algorithm>

namespace murala
{

namespace
{

struct TPlace {
    TRoot Root;
    std::string Key;
};
// The place for all users, and the user's own.
using TPlaces = std::vector<TPlace>;

TPlaces RunPlaces()
{
    return {{TRoot::LocalMachine, std::string(RunKey)}, {TRoot::CurrentUser, std::string(RunKey)}};
}

// Where the file type is unknown, the verb goes into the "Shell" key of the root itself.
std::vector<TPlaces> VerbPlaces(TRegistry& registry, std::string_view extension,
                                std::string_view verb)
{
    std::string type = ReadFileType(registry, extension);
    if (!type.empty() && !type.ends_with('\\'))
        type += '\\';
    std::vector<TPlaces> places;
    for (const std::string& files :
         {type, "SystemFileAssociations\\" + std::string(extension) + '\\'}) {
        const std::string key = files + "Shell\\" + std::string(verb);
        places.push_back(
            {{TRoot::ClassesRoot, key}, {TRoot::CurrentUser, "Software\\Classes\\" + key}});
    }
    return places;
}

std::string CommandKey(const TPlace& verb)
{
    return verb.Key + "\\Command";
}

enum class TWritten { WasThere, Changed, Refused };

TWritten WriteTo(TRegistry& registry, const TPlace& place, const std::string& name,
                 const std::string& text)
{
    if (registry.ReadText(place.Root, place.Key, name) == text)
        return TWritten::WasThere;
    return registry.WriteText(place.Root, place.Key, name, text) ? TWritten::Changed
                                                                 : TWritten::Refused;
}

// Without the model the shell offers a verb for 15 files at the most.
bool WriteVerb(TRegistry& registry, const TPlaces& places, const std::string& command)
{
    for (const TPlace& verb : places)
        if (const TWritten written = WriteTo(registry, {verb.Root, CommandKey(verb)}, "", command);
            written != TWritten::Refused)
            return WriteTo(registry, verb, "MultiSelectModel", "Player") == TWritten::Changed ||
                   written == TWritten::Changed;
    return false;
}

bool DeleteVerb(TRegistry& registry, const TPlace& verb)
{
    if (!registry.KeyExists(verb.Root, CommandKey(verb)))
        return false;
    registry.DeleteValue(verb.Root, CommandKey(verb), "");
    registry.DeleteKey(verb.Root, CommandKey(verb));
    registry.DeleteKey(verb.Root, verb.Key);
    return true;
}

} // namespace

std::string InstalledProgramFile(TRegistry& registry)
{
    const auto chosen =
        registry.ReadText(TRoot::CurrentUser, std::string(SetupKey), "InstalledProgram");
    return chosen && !chosen->empty() ? *chosen : MURALA_INSTALLED_PROGRAM;
}

std::string CommandWithFile(const std::string& program)
{
    const std::string quote = program.find(' ') != std::string::npos ? "\"" : "";
    return quote + program + quote + " \"%1\"";
}

std::string ReadFileType(TRegistry& registry, std::string_view extension)
{
    return registry.ReadText(TRoot::ClassesRoot, std::string(extension), "").value_or("");
}

bool AddShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb,
                     const std::string& command)
{
    bool isChanged = false;
    for (const TPlaces& places : VerbPlaces(registry, extension, verb))
        isChanged |= WriteVerb(registry, places, command);
    return isChanged;
}

bool RemoveShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb)
{
    bool isChanged = false;
    for (const TPlaces& places : VerbPlaces(registry, extension, verb))
        for (const TPlace& place : places)
            isChanged |= DeleteVerb(registry, place);
    return isChanged;
}

bool ShellCommandExists(TRegistry& registry, std::string_view extension, std::string_view verb)
{
    for (const TPlaces& places : VerbPlaces(registry, extension, verb))
        for (const TPlace& place : places)
            if (registry.KeyExists(place.Root, CommandKey(place)))
                return true;
    return false;
}

bool QueueFiles(TRegistry& registry, const std::vector<std::string>& names)
{
    const std::string key(AddFilesKey);
    const auto written = std::ranges::count_if(names, [&](const std::string& name) {
        return registry.WriteText(TRoot::CurrentUser, key, name, "");
    });
    return written == std::ssize(names);
}

std::vector<std::string> TakeQueuedFiles(TRegistry& registry)
{
    const std::string key(AddFilesKey);
    auto files = registry.ValueNames(TRoot::CurrentUser, key);
    std::erase_if(files, [&](const std::string& file) {
        return !registry.DeleteValue(TRoot::CurrentUser, key, file);
    });
    return files;
}

void SetRunValue(TRegistry& registry, std::string_view name, const std::string& command)
{
    const std::string value(name);
    for (const TPlace& place : RunPlaces()) {
        const bool isThere = registry.ReadText(place.Root, place.Key, value).has_value();
        if (WriteTo(registry, place, value, command) == TWritten::Refused && !isThere)
            continue;
        if (place.Root == TRoot::LocalMachine)
            registry.DeleteValue(TRoot::CurrentUser, place.Key, value);
        return;
    }
}

void DeleteRunValue(TRegistry& registry, std::string_view name)
{
    for (const TPlace& place : RunPlaces())
        registry.DeleteValue(place.Root, place.Key, std::string(name));
}

bool RunValueExists(TRegistry& registry, std::string_view name)
{
    return std::ranges::any_of(RunPlaces(), [&](const TPlace& place) {
        return registry.ReadText(place.Root, place.Key, std::string(name)).has_value();
    });
}

namespace
{

class TWindowsFileMenu : public TFileMenu
{
public:
    void AddShellCommand(const TFileCommand& command) override
    {
        bool isChanged = false;
        for (const std::string& extension : command.Extensions)
            isChanged |= murala::AddShellCommand(*m_registry, extension, command.Verb,
                                                 CommandWithFile(command.Program));
        TellShell(isChanged);
    }
    void RemoveShellCommand(const TFileCommand& command) override
    {
        bool isChanged = false;
        for (const std::string& extension : command.Extensions)
            isChanged |= murala::RemoveShellCommand(*m_registry, extension, command.Verb);
        TellShell(isChanged);
    }
    bool ShellCommandExists(const TFileCommand& command) override
    {
        return std::ranges::all_of(command.Extensions, [&](const std::string& extension) {
            return murala::ShellCommandExists(*m_registry, extension, command.Verb);
        });
    }

private:
    // Only after a change: the shell reads all menus and icons again, and the icons flicker.
    static void TellShell(bool isChanged)
    {
        if (isChanged)
            SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    }

    std::unique_ptr<TRegistry> m_registry = NewRegistry();
};

class TWindowsFileQueue : public TFileQueue
{
public:
    bool QueueFiles(const std::vector<std::string>& names) override
    {
        return murala::QueueFiles(*m_registry, names);
    }
    std::vector<std::string> TakeQueuedFiles() override
    {
        return murala::TakeQueuedFiles(*m_registry);
    }

private:
    std::unique_ptr<TRegistry> m_registry = NewRegistry();
};

class TWindowsAutostart : public TAutostart
{
public:
    bool RunValueExists(const std::string& name) override
    {
        return murala::RunValueExists(*m_registry, name);
    }
    void SetRunValue(const std::string& name, const std::string& command) override
    {
        murala::SetRunValue(*m_registry, name, command);
    }
    void DeleteRunValue(const std::string& name) override
    {
        murala::DeleteRunValue(*m_registry, name);
    }

private:
    std::unique_ptr<TRegistry> m_registry = NewRegistry();
};

} // namespace

std::string InstalledProgramFile()
{
    return InstalledProgramFile(*NewRegistry());
}

std::unique_ptr<TFileMenu> NewFileMenu()
{
    return std::make_unique<TWindowsFileMenu>();
}

std::unique_ptr<TFileQueue> NewFileQueue()
{
    return std::make_unique<TWindowsFileQueue>();
}

std::unique_ptr<TAutostart> NewAutostart()
{
    return std::make_unique<TWindowsAutostart>();
}

} // namespace murala
