// Registry values in a file: one line a value, its key, name and text divided by tabs. Several
// processes may use it at the same time.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace murala
{

class TRegistryFile
{
public:
    explicit TRegistryFile(std::string path) : m_path(std::move(path)) {}

    bool KeyExists(const std::string& key) const;
    std::optional<std::string> Read(const std::string& key, const std::string& name) const;
    std::vector<std::string> Names(const std::string& key) const;
    bool Write(const std::string& key, const std::string& name, const std::string& text);
    bool DeleteValue(const std::string& key, const std::string& name);

private:
    struct TValue {
        std::string Key, Name, Text;
        bool IsOf(const std::string& key) const;
        bool Is(const std::string& key, const std::string& name) const;
    };
    using TValues = std::vector<TValue>;

    TValues Load() const;
    void Save(const TValues& values) const;
    // Between reading and replacing the file nobody else changes it. False when it cannot be
    // written.
    bool Change(const std::function<void(TValues&)>& change);

    std::string m_path;
};

} // namespace murala
