#include "uRegistry.h"
#include "uWindowsHandles.h"

namespace murala
{

namespace
{

HKEY RootKey(TRoot root)
{
    switch (root) {
    case TRoot::ClassesRoot:
        return HKEY_CLASSES_ROOT;
    case TRoot::LocalMachine:
        return HKEY_LOCAL_MACHINE;
    case TRoot::CurrentUser:
        break;
    }
    return HKEY_CURRENT_USER;
}

class TWindowsRegistry : public TRegistry
{
public:
    bool KeyExists(TRoot root, const std::string& key) override
    {
        return static_cast<bool>(OpenKey(RootKey(root), key, KEY_QUERY_VALUE));
    }

    std::optional<std::string> ReadText(TRoot root, const std::string& key,
                                        const std::string& name) override
    {
        const TKey opened = OpenKey(RootKey(root), key, KEY_QUERY_VALUE);
        DWORD type = 0;
        DWORD size = 0;
        if (!opened || RegQueryValueExA(opened.get(), name.c_str(), nullptr, &type, nullptr,
                                        &size) != ERROR_SUCCESS)
            return std::nullopt;
        std::string text(size, '\0');
        if ((type != REG_SZ && type != REG_EXPAND_SZ) ||
            RegQueryValueExA(opened.get(), name.c_str(), nullptr, nullptr,
                             reinterpret_cast<BYTE*>(text.data()), &size) != ERROR_SUCCESS)
            return std::nullopt;
        return text.substr(0, text.find('\0'));
    }

    bool WriteText(TRoot root, const std::string& key, const std::string& name,
                   const std::string& text) override
    {
        HKEY made = nullptr;
        if (RegCreateKeyExA(RootKey(root), key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                            &made, nullptr) != ERROR_SUCCESS)
            return false;
        const TKey opened(made);
        return RegSetValueExA(made, name.c_str(), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>(text.size() + 1)) == ERROR_SUCCESS;
    }

    std::vector<std::string> ValueNames(TRoot root, const std::string& key) override
    {
        std::vector<std::string> names;
        const TKey opened = OpenKey(RootKey(root), key, KEY_QUERY_VALUE);
        if (!opened)
            return names;
        // A name has 16383 characters at the most, of up to three bytes each.
        std::string name(3 * 16384, '\0');
        for (;;) {
            auto length = static_cast<DWORD>(name.size());
            if (RegEnumValueA(opened.get(), static_cast<DWORD>(names.size()), name.data(), &length,
                              nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
                return names;
            names.push_back(name.substr(0, length));
        }
    }

    bool DeleteValue(TRoot root, const std::string& key, const std::string& name) override
    {
        const TKey opened = OpenKey(RootKey(root), key, KEY_SET_VALUE);
        return opened && RegDeleteValueA(opened.get(), name.c_str()) == ERROR_SUCCESS;
    }

    // Windows refuses to delete a key that has keys below it.
    void DeleteKey(TRoot root, const std::string& key) override
    {
        RegDeleteKeyA(RootKey(root), key.c_str());
    }
};

} // namespace

std::unique_ptr<TRegistry> NewRegistry()
{
    return std::make_unique<TWindowsRegistry>();
}

} // namespace murala
