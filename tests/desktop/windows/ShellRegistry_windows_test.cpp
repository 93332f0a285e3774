#include "uShellRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>
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
    void DeleteKey(TRoot root, const std::string& key) override
    {
        const auto isBelow = [&](const auto& each) {
            return each.first.first == root && each.first.second.starts_with(key + '\\');
        };
        if (!Refused.contains(root) && std::ranges::none_of(Keys, isBelow))
            Keys.erase({root, key});
    }
};

const std::string Verb = "Add to Murala";
constexpr const char* Extensions[] = {".bmp", ".jpg"};
// Below the file's type, and below its extension for users of another program.
const std::string Verbs[] = {R"(Paint.Picture\Shell\Add to Murala)",
                             R"(jpegfile\Shell\Add to Murala)",
                             R"(SystemFileAssociations\.bmp\Shell\Add to Murala)",
                             R"(SystemFileAssociations\.jpg\Shell\Add to Murala)"};

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
        // The shell is told of changes only.
        for (const bool isFirst : {true, false})
            EXPECT_EQ(integrated ? AddShellCommand(registry, extension, Verb, "x \"%1\"")
                                 : RemoveShellCommand(registry, extension, Verb),
                      isFirst);
        EXPECT_EQ(ShellCommandExists(registry, extension, Verb), integrated);
    }
}

TEST(ShellRegistry, VerbLiesBelowEachFileTypeAndGoesWithoutTrace)
{
    TFakeRegistry registry = RegistryWithTypes();
    const auto before = registry.Keys;
    Integrate(registry, true);
    for (const std::string& verb : Verbs) {
        EXPECT_EQ(registry.ReadText(TRoot::ClassesRoot, verb + "\\Command", ""), "x \"%1\"");
        EXPECT_EQ(registry.ReadText(TRoot::ClassesRoot, verb, "MultiSelectModel"), "Player");
    }
    Integrate(registry, false);
    EXPECT_EQ(registry.Keys, before);
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
    for (const std::string& verb : Verbs)
        EXPECT_TRUE(registry.KeyExists(TRoot::CurrentUser, "Software\\Classes\\" + verb));
    Integrate(registry, false);
    EXPECT_EQ(registry.Keys, before);
}

TEST(ShellRegistry, SetupMayHaveChosenAnotherFolder)
{
    TFakeRegistry registry;
    const std::string usual = InstalledProgramFile(registry);
    EXPECT_EQ(CommandWithFile(usual), usual + " \"%1\"");
    registry.WriteText(TRoot::CurrentUser, "Software\\Murala", "InstalledProgram", "");
    EXPECT_EQ(InstalledProgramFile(registry), usual);
    const std::string chosen = R"(D:\My programs\Murala.exe)";
    registry.WriteText(TRoot::CurrentUser, "Software\\Murala", "InstalledProgram", chosen);
    EXPECT_EQ(InstalledProgramFile(registry), chosen);
    EXPECT_EQ(CommandWithFile(chosen), '"' + chosen + "\" \"%1\"")
        << "Windows would look for D:\\My.exe";
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
    SetRunValue(registry, "Murala", "c");
    EXPECT_FALSE(registry.KeyExists(TRoot::CurrentUser, key)) << "two copies would start";

    registry.Keys.clear();
    SetRunValue(registry, "Murala", "b");
    EXPECT_EQ(registry.ReadText(TRoot::CurrentUser, key, "Murala"), "b");
    EXPECT_TRUE(RunValueExists(registry, "Murala"));
    registry.Refused = {};
    SetRunValue(registry, "Murala", "b");
    EXPECT_EQ(registry.ReadText(TRoot::LocalMachine, key, "Murala"), "b");
    EXPECT_FALSE(registry.ReadText(TRoot::CurrentUser, key, "Murala"));
    DeleteRunValue(registry, "Murala");
    EXPECT_FALSE(RunValueExists(registry, "Murala"));
}

} // namespace
