// Files in the form of the Desktop Entry standard.
#pragma once

#include "uGLib.h"

#include <string>
#include <string_view>
#include <vector>

namespace murala
{

// A program's full path, which may contain blanks, and arguments.
struct TCommand {
    std::string Program;
    std::vector<std::string> Arguments;
};

// The program is the longest part that names a file; if none does, the text up to the first blank.
TCommand SplitCommand(const std::string& command);

// The command as the standard's Exec key wants it.
std::string ExecText(const TCommand& command);

class TDesktopEntry
{
public:
    static constexpr const char* MainGroup = "Desktop Entry";

    // An empty one when the file is missing or broken.
    explicit TDesktopEntry(std::string path);

    bool IsEmpty() const;
    std::string Read(const char* key) const; // of the main group
    bool ReadBoolean(const char* key, bool otherwise) const;
    void Write(const char* key, std::string_view text, const char* group = MainGroup);
    std::vector<std::string> ReadList(const char* key) const;
    void WriteList(const char* key, const std::vector<std::string>& texts,
                   const char* group = MainGroup);

    // Makes the folders. False when the file cannot be written.
    bool Save() const;

private:
    std::string m_path;
    std::unique_ptr<GKeyFile, TFreeBy<g_key_file_unref>> m_file;
};

} // namespace murala
