#include "uShellRegistry.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <utility>

using namespace murala;

namespace
{

struct TFakeRegistry : TRegistry {
    std::map<std::pair<TRoot, std::string>, std::map<std::string, std::string>> Keys;
    std::set<TRoot> Refused; // roots that may not be written

    bool KeyExists(TRoot root, const std::string& key) override
    {
        return Keys.contains({root, key});
    }
    std::optional<std::string> ReadText(TRoot root, const std::string& key,
                                        const std::string& name) override
    {
        const auto values = Keys.find({root, key});
        if (values == Keys.end() || !values->second.contains(name))
            return std::nullopt;
        return values->second.at(name);
    }
    bool WriteText(TRoot root, const std::string& key, const std::string& name,
                   const std::string& text) override
    {
        if (Refused.contains(root))
            return false;
        Keys[{root, key}][name] = text;
        return true;
    }
    std::vector<std::string> ValueNames(TRoot root, const std::string& key) override
    {
        std::vector<std::string> names;
        for (const auto& [name, text] : Keys[{root, key}])
            names.push_back(name);
        return names;
    }
    bool DeleteValue(TRoot root, const std::string& key, const std::string& name) override
    {
        const auto values = Keys.find({root, key});
        return !Refused.contains(root) && values != Keys.end() && values->second.erase(name) != 0;
    }
    void DeleteKey(TRoot root, const std::string& key) override { Keys.erase({root, key}); }
};

const std::string Verb = "Add to Murala";
constexpr const char* Extensions[] = {".bmp", ".jpg"};
const std::string BitmapVerb = "Paint.Picture\\Shell\\Add to Murala\\Command";
const std::string JpegVerb = "jpegfile\\Shell\\Add to Murala\\Command";

TFakeRegistry RegistryWithTypes()
{
    TFakeRegistry registry;
    registry.Keys[{TRoot::ClassesRoot, ".bmp"}][""] = "Paint.Picture";
    registry.Keys[{TRoot::ClassesRoot, ".jpg"}][""] = "jpegfile\\";
    return registry;
}

void Integrate(TRegistry& registry, bool integrated)
{
    for (const char* extension : Extensions) {
        if (integrated)
            AddShellCommand(registry, extension, Verb, "x \"%1\"");
        else
            RemoveShellCommand(registry, extension, Verb);
        EXPECT_EQ(ShellCommandExists(registry, extension, Verb), integrated);
    }
}

TEST(ShellRegistry, VerbLiesBelowEachFileTypeAndGoesWithoutTrace)
{
    TFakeRegistry registry = RegistryWithTypes();
    const auto before = registry.Keys;
    Integrate(registry, true);
    for (const std::string& key : {BitmapVerb, JpegVerb})
        EXPECT_EQ(registry.ReadText(TRoot::ClassesRoot, key, ""), "x \"%1\"");
    for (int i = 0; i < 2; i++) {
        Integrate(registry, false);
        EXPECT_EQ(registry.Keys, before);
    }
    AddShellCommand(registry, ".png", Verb, "x");
    EXPECT_TRUE(registry.KeyExists(TRoot::ClassesRoot, "Shell\\Add to Murala\\Command"))
        << "of a type that is not known";
}

TEST(ShellRegistry, OrdinaryUsersHaveTheirOwnVerbs)
{
    TFakeRegistry registry = RegistryWithTypes();
    registry.Refused = {TRoot::ClassesRoot, TRoot::LocalMachine};
    const auto before = registry.Keys;
    Integrate(registry, true);
    EXPECT_TRUE(registry.KeyExists(TRoot::CurrentUser, "Software\\Classes\\" + BitmapVerb));
    Integrate(registry, false);
    EXPECT_EQ(registry.Keys, before);
}

TEST(ShellRegistry, NamesThatCannotBeTakenOutAreNotGiven)
{
    TFakeRegistry registry;
    EXPECT_TRUE(QueueFiles(registry, {"a", "b", "a"}));
    registry.Refused = {TRoot::CurrentUser};
    EXPECT_TRUE(TakeQueuedFiles(registry).empty()) << "they would come again and again";
    EXPECT_FALSE(QueueFiles(registry, {"c"}));
    registry.Refused = {};
    EXPECT_EQ(TakeQueuedFiles(registry), (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(TakeQueuedFiles(registry).empty());
}

TEST(ShellRegistry, StartEntryIsTheMachinesWhereThatIsAllowed)
{
    TFakeRegistry registry;
    const std::string key(RunKey);
    for (const char* command : {"a", "b"})
        SetRunValue(registry, "Murala", command);
    registry.Refused = {TRoot::LocalMachine};
    SetRunValue(registry, "Murala", "b");
    EXPECT_EQ(registry.ReadText(TRoot::LocalMachine, key, "Murala"), "b");
    EXPECT_FALSE(registry.KeyExists(TRoot::CurrentUser, key)) << "nothing to be set right";

    registry.Keys.clear();
    SetRunValue(registry, "Murala", "b");
    EXPECT_EQ(registry.ReadText(TRoot::CurrentUser, key, "Murala"), "b");
    EXPECT_TRUE(RunValueExists(registry, "Murala"));
    DeleteRunValue(registry, "Murala");
    EXPECT_FALSE(RunValueExists(registry, "Murala"));
}

} // namespace
