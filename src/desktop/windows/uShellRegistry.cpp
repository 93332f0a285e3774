#include "uShellRegistry.h"

#include "uAutostart.h"
#include "uFileMenu.h"
#include "uFileQueue.h"

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

namespace
{

class TWindowsFileMenu : public TFileMenu
{
public:
    void AddShellCommand(const TFileCommand& command) override
    {
        for (const std::string& extension : command.Extensions)
            murala::AddShellCommand(*m_registry, extension, command.Verb,
                                    command.Program + " \"%1\"");
    }
    void RemoveShellCommand(const TFileCommand& command) override
    {
        for (const std::string& extension : command.Extensions)
            murala::RemoveShellCommand(*m_registry, extension, command.Verb);
    }
    bool ShellCommandExists(const TFileCommand& command) override
    {
        return std::ranges::all_of(command.Extensions, [&](const std::string& extension) {
            return murala::ShellCommandExists(*m_registry, extension, command.Verb);
        });
    }

private:
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
