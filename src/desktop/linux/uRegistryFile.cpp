#include "uRegistryFile.h"

#include "uDescriptor.h"
#include "uPath.h"
#include "uSafeFile.h"
#include "uText.h"

#include <algorithm>
#include <array>

namespace murala
{

namespace
{

std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (const char character : text) {
        if (character == '\t')
            escaped += "\\t";
        else if (character == '\n')
            escaped += "\\n";
        else if (character == '\r')
            escaped += "\\r";
        else if (character == '\\')
            escaped += "\\\\";
        else
            escaped += character;
    }
    return escaped;
}

std::string Unescaped(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        const char code = text[++i];
        plain += code == 't' ? '\t' : code == 'n' ? '\n' : code == 'r' ? '\r' : code;
    }
    return plain;
}

std::array<std::string, 3> Fields(std::string_view line)
{
    std::array<std::string, 3> fields;
    for (std::string& field : fields) {
        const std::size_t end = std::min(line.find('\t'), line.size());
        field = Unescaped(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return fields;
}

} // namespace

bool TRegistryFile::TValue::IsOf(const std::string& key) const
{
    return SameTextAscii(Key, key);
}

// Names are names of files, whose letter case counts here.
bool TRegistryFile::TValue::Is(const std::string& key, const std::string& name) const
{
    return Name == name && IsOf(key);
}

TRegistryFile::TValues TRegistryFile::Load() const
{
    TValues values;
    if (!FileExists(m_path))
        return values;
    const std::string text = ReadWholeFile(m_path);
    for (const std::string_view line : SplitLines(text)) {
        auto [key, name, content] = Fields(line);
        values.push_back({std::move(key), std::move(name), std::move(content)});
    }
    return values;
}

// The queue of files is no loss to a power failure; waiting for the disk at each name would be
// slow.
void TRegistryFile::Save(const TValues& values) const
{
    std::string text;
    for (const TValue& value : values)
        text += Escaped(value.Key) + '\t' + Escaped(value.Name) + '\t' + Escaped(value.Text) + '\n';
    ReplaceWholeFile(m_path, text, TFlush::ToSystemCache);
}

bool TRegistryFile::Change(const std::function<void(TValues&)>& change)
try {
    std::error_code error;
    std::filesystem::create_directories(NativePath(FolderPart(m_path)), error);
    const TDescriptor lock = LockFile(m_path + ".lock");
    if (!lock)
        return false;
    TValues values = Load();
    change(values);
    Save(values);
    return true;
} catch (const EFileError&) {
    return false;
}

bool TRegistryFile::KeyExists(const std::string& key) const
{
    return !Names(key).empty();
}

std::optional<std::string> TRegistryFile::Read(const std::string& key,
                                               const std::string& name) const
try {
    for (const TValue& value : Load())
        if (value.Is(key, name))
            return value.Text;
    return std::nullopt;
} catch (const EFileError&) {
    return std::nullopt;
}

std::vector<std::string> TRegistryFile::Names(const std::string& key) const
try {
    std::vector<std::string> names;
    for (const TValue& value : Load())
        if (value.IsOf(key))
            names.push_back(value.Name);
    return names;
} catch (const EFileError&) {
    return {};
}

bool TRegistryFile::Write(const std::string& key, const std::string& name, const std::string& text)
{
    return Change([&](TValues& values) {
        const auto known =
            std::ranges::find_if(values, [&](const TValue& value) { return value.Is(key, name); });
        if (known != values.end())
            known->Text = text;
        else
            values.push_back({key, name, text});
    });
}

bool TRegistryFile::DeleteValue(const std::string& key, const std::string& name)
{
    return Change([&](TValues& values) {
        std::erase_if(values, [&](const TValue& value) { return value.Is(key, name); });
    });
}

} // namespace murala
