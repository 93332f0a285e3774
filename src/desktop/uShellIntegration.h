// What Murala leaves in the shell: the command "Add to Murala" on pictures, the entry that starts
// it with the session, and the queue of files that one copy hands to another.
//
// The file types and the start entry belong to the whole machine. Where an ordinary user may not
// write there, the same values go below HKEY_CURRENT_USER, and are found and removed there, too.
#pragma once

#include "uRegistry.h"

#include <string>
#include <string_view>
#include <vector>

namespace murala
{

inline constexpr std::string_view ApplicationTitle = "Murala";
inline constexpr std::string_view ShellVerb = "Add to Murala";
inline constexpr std::string_view ShellExtensions[] = {".bmp", ".jpg"};
inline constexpr std::string_view AddFilesKey = R"(Software\Murala\AddFiles)";
inline constexpr std::string_view RunKey = R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";

// The name of the file type, empty when it is not known.
std::string ReadFileType(TRegistry& registry, std::string_view extension);

void AddShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb,
                     const std::string& command);
void RemoveShellCommand(TRegistry& registry, std::string_view extension, std::string_view verb);
bool ShellCommandExists(TRegistry& registry, std::string_view extension, std::string_view verb);

// The verb "Add to Murala" for every extension. Its command names the folder that Murala is meant
// to be installed in (fixed by the build), not the one that it runs from.
void SetShellIntegration(TRegistry& registry, bool integrated);
bool IsShellIntegrated(TRegistry& registry);

// Full paths of the arguments that name a file or, as a pattern, match one (the first), in the
// spelling that the file system has stored. Others, such as "/apply", are left out.
std::vector<std::string> FindFilesOfArguments(const std::vector<std::string>& arguments);

// `arguments` without the program's own name.
void QueueFilesFromCommandLine(TRegistry& registry, const std::vector<std::string>& arguments);
// Empties the queue. The order is the registry's. A name that cannot be deleted is left out: it
// would be taken again and again.
std::vector<std::string> TakeQueuedFiles(TRegistry& registry);

// The command that the session runs at its start.
void SetRunValue(TRegistry& registry, std::string_view name, const std::string& command);
void DeleteRunValue(TRegistry& registry, std::string_view name);
bool RunValueExists(TRegistry& registry, std::string_view name);

} // namespace murala
