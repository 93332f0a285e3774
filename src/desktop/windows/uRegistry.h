// The registry of Windows.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace murala
{

enum class TRoot { ClassesRoot, CurrentUser, LocalMachine };

// Keys are divided by "\"; they and the names of values are the same in any letter case. The value
// with the empty name is the key's default value. All values are texts. This class is an interface
// for the tests' sake: they cannot run as an ordinary user, whom Windows refuses parts of the
// registry.
class TRegistry
{
public:
    virtual ~TRegistry() = default;

    virtual bool KeyExists(TRoot root, const std::string& key) = 0;
    // Empty when there is no such text or it may not be read.
    virtual std::optional<std::string> ReadText(TRoot root, const std::string& key,
                                                const std::string& name) = 0;
    // Makes the key. False when that is refused.
    virtual bool WriteText(TRoot root, const std::string& key, const std::string& name,
                           const std::string& text) = 0;
    virtual std::vector<std::string> ValueNames(TRoot root, const std::string& key) = 0;
    // Whether it is gone.
    virtual bool DeleteValue(TRoot root, const std::string& key, const std::string& name) = 0;
    // A key with keys below it stays.
    virtual void DeleteKey(TRoot root, const std::string& key) = 0;
};

std::unique_ptr<TRegistry> NewRegistry();

} // namespace murala
