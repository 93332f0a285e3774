// Where the registry keeps what Murala leaves in the shell: commands on file types, the entry that
// starts a program with Windows, and the queue of files.
//
// The file types and the start entry belong to the whole machine. Where an ordinary user may not
// write there, the same values go below HKEY_CURRENT_USER, and are found and removed there, too.
//
// A command lies below the file's type. The user may have chosen another program for such files,
// which gives them another type; so it also lies below the extension's system-wide key.
#pragma once

#include "uRegistry.h"

#include <string>
#include <string_view>
#include <vector>

namespace murala
{

inline constexpr std::string_view SetupKey = R"(Software\Murala)";
inline constexpr std::string_view AddFilesKey = R"(Software\Murala\AddFiles)";
inline constexpr std::string_view RunKey = R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";

// What the setup program has written where it installed Murala in another folder than the usual
// one.
std::string InstalledProgramFile(TRegistry& registry);
// The command that starts a program with a file.
std::string CommandWithFile(const std::string& program);

// The name of the file type, empty when it is not known.
std::string ReadFileType(TRegistry& registry, std::string_view extension);

// Both tell whether they changed anything.
bool AddShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb,
                     const std::string& command);
bool RemoveShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb);
bool ShellCommandExists(TRegistry& registry, std::string_view extension, std::string_view verb);

bool QueueFiles(TRegistry& registry, const std::vector<std::string>& names);
// The order is the registry's. A name that cannot be deleted is left out.
std::vector<std::string> TakeQueuedFiles(TRegistry& registry);

// Where the machine's entry may not be changed, it stays the only one: two would start two copies.
void SetRunValue(TRegistry& registry, std::string_view name, const std::string& command);
void DeleteRunValue(TRegistry& registry, std::string_view name);
bool RunValueExists(TRegistry& registry, std::string_view name);

} // namespace murala
