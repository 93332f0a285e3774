#include "uShellIntegration.h"

#include "uFileSearch.h"
#include "uPath.h"
#include "uProgramFolder.h"

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

// Of an unknown file type the verb lies in the "Shell" key of the root itself.
TPlaces VerbPlaces(TRegistry& registry, std::string_view extension, std::string_view verb)
{
    std::string type = ReadFileType(registry, extension);
    if (!type.empty() && !type.ends_with('\\'))
        type += '\\';
    const std::string key = type + "Shell\\" + std::string(verb);
    return {{TRoot::ClassesRoot, key}, {TRoot::CurrentUser, "Software\\Classes\\" + key}};
}

std::string CommandKey(const TPlace& verb)
{
    return verb.Key + "\\Command";
}

void WriteToFirst(TRegistry& registry, const TPlaces& places, const std::string& name,
                  const std::string& text)
{
    for (const TPlace& place : places)
        if (registry.ReadText(place.Root, place.Key, name) == text ||
            registry.WriteText(place.Root, place.Key, name, text))
            return;
}

} // namespace

std::string ReadFileType(TRegistry& registry, std::string_view extension)
{
    return registry.ReadText(TRoot::ClassesRoot, std::string(extension), "").value_or("");
}

void AddShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb,
                     const std::string& command)
{
    TPlaces places = VerbPlaces(registry, extension, verb);
    for (TPlace& place : places)
        place.Key = CommandKey(place);
    WriteToFirst(registry, places, "", command);
}

void RemoveShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb)
{
    for (const TPlace& place : VerbPlaces(registry, extension, verb)) {
        if (!registry.KeyExists(place.Root, CommandKey(place)))
            continue;
        registry.DeleteValue(place.Root, CommandKey(place), "");
        registry.DeleteKey(place.Root, CommandKey(place));
        registry.DeleteKey(place.Root, place.Key);
    }
}

bool ShellCommandExists(TRegistry& registry, std::string_view extension, std::string_view verb)
{
    return std::ranges::any_of(VerbPlaces(registry, extension, verb), [&](const TPlace& place) {
        return registry.KeyExists(place.Root, CommandKey(place));
    });
}

void SetShellIntegration(TRegistry& registry, bool integrated)
{
    for (const std::string_view extension : ShellExtensions) {
        if (integrated)
            AddShellCommand(registry, extension, ShellVerb, InstalledProgramFile() + " \"%1\"");
        else
            RemoveShellCommand(registry, extension, ShellVerb);
    }
}

bool IsShellIntegrated(TRegistry& registry)
{
    return std::ranges::all_of(ShellExtensions, [&](std::string_view extension) {
        return ShellCommandExists(registry, extension, ShellVerb);
    });
}

std::vector<std::string> FindFilesOfArguments(const std::vector<std::string>& arguments)
{
    std::vector<std::string> files;
    for (const std::string& argument : arguments) {
        const auto name = FindFirstName(argument);
        if (!name)
            continue;
        const auto file = std::filesystem::absolute(NativePath(argument));
        files.push_back(PathText((file.parent_path() / NativePath(*name)).lexically_normal()));
    }
    return files;
}

void QueueFilesFromCommandLine(TRegistry& registry, const std::vector<std::string>& arguments)
{
    for (const std::string& file : FindFilesOfArguments(arguments))
        registry.WriteText(TRoot::CurrentUser, std::string(AddFilesKey), file, "");
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
    WriteToFirst(registry, RunPlaces(), std::string(name), command);
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

} // namespace murala
