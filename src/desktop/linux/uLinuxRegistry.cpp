// The registry of a home without one. An ordinary user has no say over the machine, so that
// HKEY_LOCAL_MACHINE refuses everything; HKEY_CLASSES_ROOT is the user's own Software\Classes.
// Three kinds of keys are the session's: the Run key, file types, and the verb on a file type.
#include "uAutostart.h"
#include "uFolders.h"
#include "uMenuEntries.h"
#include "uPath.h"
#include "uRegistry.h"
#include "uRegistryFile.h"
#include "uShellIntegration.h"
#include "uText.h"

namespace murala
{

namespace
{

constexpr std::string_view ClassesKey = "Software\\Classes\\";

enum class TKind { Nowhere, Autostart, FileType, MenuEntry, File };

struct TPlace {
    TKind Kind;
    std::string Key; // of FileType its extension, of MenuEntry its MIME type
};

bool StartsWithText(std::string_view text, std::string_view start)
{
    return SameTextAscii(text.substr(0, start.size()), start);
}

TPlace PlaceOfClass(const std::string& key)
{
    static const std::string commandEnd = "\\Shell\\" + std::string(ShellVerb) + "\\Command";
    if (key.starts_with('.') && key.find('\\') == std::string::npos)
        return {TKind::FileType, key};
    if (key.size() > commandEnd.size() &&
        SameTextAscii(std::string_view(key).substr(key.size() - commandEnd.size()), commandEnd))
        return {TKind::MenuEntry, key.substr(0, key.size() - commandEnd.size())};
    return {TKind::File, std::string(ClassesKey) + key};
}

TPlace PlaceOf(TRoot root, std::string key)
{
    while (key.ends_with('\\'))
        key.pop_back();
    if (root == TRoot::LocalMachine)
        return {TKind::Nowhere, {}};
    if (root == TRoot::ClassesRoot)
        return PlaceOfClass(key);
    if (StartsWithText(key, ClassesKey))
        return PlaceOfClass(key.substr(ClassesKey.size()));
    return {SameTextAscii(key, RunKey) ? TKind::Autostart : TKind::File, key};
}

class TLinuxRegistry : public TRegistry
{
public:
    bool KeyExists(TRoot root, const std::string& key) override
    {
        const TPlace place = PlaceOf(root, key);
        switch (place.Kind) {
        case TKind::Autostart:
            return true;
        case TKind::FileType:
            return !MimeTypeOf(place.Key).empty();
        case TKind::MenuEntry:
            return MenuEntryExists(place.Key);
        case TKind::File:
            return m_file.KeyExists(place.Key);
        case TKind::Nowhere:
            break;
        }
        return false;
    }

    std::optional<std::string> ReadText(TRoot root, const std::string& key,
                                        const std::string& name) override
    {
        const TPlace place = PlaceOf(root, key);
        switch (place.Kind) {
        case TKind::Autostart:
            return ReadAutostart(name);
        case TKind::FileType:
            return MimeTypeOf(place.Key);
        case TKind::MenuEntry:
            return ReadMenuEntry(place.Key);
        case TKind::File:
            return m_file.Read(place.Key, name);
        case TKind::Nowhere:
            break;
        }
        return std::nullopt;
    }

    bool WriteText(TRoot root, const std::string& key, const std::string& name,
                   const std::string& text) override
    {
        const TPlace place = PlaceOf(root, key);
        switch (place.Kind) {
        case TKind::Autostart:
            return WriteAutostart(name, text);
        case TKind::MenuEntry:
            return WriteMenuEntry(place.Key, text);
        case TKind::File:
            return m_file.Write(place.Key, name, text);
        case TKind::FileType:
        case TKind::Nowhere:
            break;
        }
        return false;
    }

    std::vector<std::string> ValueNames(TRoot root, const std::string& key) override
    {
        const TPlace place = PlaceOf(root, key);
        return place.Kind == TKind::File ? m_file.Names(place.Key) : std::vector<std::string>();
    }

    bool DeleteValue(TRoot root, const std::string& key, const std::string& name) override
    {
        const TPlace place = PlaceOf(root, key);
        if (place.Kind == TKind::Autostart)
            DeleteAutostart(name);
        else if (place.Kind == TKind::MenuEntry)
            DeleteMenuEntry(place.Key);
        else
            return place.Kind == TKind::File && m_file.DeleteValue(place.Key, name);
        return !ReadText(root, key, name);
    }

    // A key is there as long as it has values.
    void DeleteKey(TRoot /*root*/, const std::string& /*key*/) override {}

private:
    // Not beside the program: a portable copy must find what the installed one has queued for it,
    // and the other way round.
    TRegistryFile m_file{PathText(UserDataFolder() / "murala/Murala.registry")};
};

} // namespace

std::unique_ptr<TRegistry> NewRegistry()
{
    return std::make_unique<TLinuxRegistry>();
}

} // namespace murala
