#include "uDesktopEntry.h"

#include "uPath.h"
#include "uText.h"

#include <sstream>

namespace murala
{

namespace
{

// In quotes, with the characters escaped that are special there. "%" begins a field code, so it is
// doubled.
std::string QuotedArgument(const std::string& argument)
{
    std::string quoted = "\"";
    for (const char character : argument) {
        if (std::string_view("\"`$\\").find(character) != std::string_view::npos)
            quoted += '\\';
        quoted += character;
        if (character == '%')
            quoted += '%';
    }
    return quoted + '"';
}

} // namespace

TCommand SplitCommand(const std::string& command)
{
    std::size_t end = command.size();
    while (end != std::string::npos && !IsReachableFile(command.substr(0, end)))
        end = end == 0 ? std::string::npos : command.rfind(' ', end - 1);
    if (end == std::string::npos)
        end = std::min(command.find(' '), command.size());
    TCommand split{command.substr(0, end), {}};
    std::istringstream rest(command.substr(end));
    for (std::string argument; rest >> argument;)
        split.Arguments.push_back(argument);
    return split;
}

std::string ExecText(const TCommand& command)
{
    std::string text = QuotedArgument(command.Program);
    for (const std::string& argument : command.Arguments)
        text += ' ' + QuotedArgument(argument);
    return text;
}

TDesktopEntry::TDesktopEntry(std::string path) : m_path(std::move(path)), m_file(g_key_file_new())
{
    const auto flags =
        static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    g_key_file_load_from_file(m_file.get(), m_path.c_str(), flags, nullptr);
}

bool TDesktopEntry::IsEmpty() const
{
    return g_key_file_has_group(m_file.get(), MainGroup) == FALSE;
}

std::string TDesktopEntry::Read(const char* key) const
{
    const TGText text(g_key_file_get_string(m_file.get(), MainGroup, key, nullptr));
    return text ? text.get() : "";
}

bool TDesktopEntry::ReadBoolean(const char* key, bool otherwise) const
{
    const std::string text = Read(key);
    return text.empty() ? otherwise : text == "true";
}

void TDesktopEntry::Write(const char* key, std::string_view text, const char* group)
{
    g_key_file_set_string(m_file.get(), group, key, std::string(text).c_str());
}

std::vector<std::string> TDesktopEntry::ReadList(const char* key) const
{
    std::vector<std::string> texts;
    const std::unique_ptr<char*, TFreeBy<g_strfreev>> list(
        g_key_file_get_string_list(m_file.get(), MainGroup, key, nullptr, nullptr));
    for (char** each = list.get(); each != nullptr && *each != nullptr; each++)
        texts.emplace_back(*each);
    return texts;
}

void TDesktopEntry::WriteList(const char* key, const std::vector<std::string>& texts,
                              const char* group)
{
    std::vector<const char*> pointers;
    pointers.reserve(texts.size());
    for (const std::string& text : texts)
        pointers.push_back(text.c_str());
    g_key_file_set_string_list(m_file.get(), group, key, pointers.data(), pointers.size());
}

bool TDesktopEntry::Save() const
{
    std::error_code error;
    std::filesystem::create_directories(NativePath(FolderPart(m_path)), error);
    return g_key_file_save_to_file(m_file.get(), m_path.c_str(), nullptr) != FALSE;
}

} // namespace murala
