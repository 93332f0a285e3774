// What the program was started as, and where it keeps its files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace murala
{

// The full path of the running program file.
std::string ProgramFile();

// The arguments behind the program's name, byte for byte: a name that the present locale cannot
// spell is still a file's name.
std::vector<std::string> ProgramArguments();

// With a trailing divider. The folder of the program file when the data lies there (Windows:
// always; Linux: in a portable copy, which has "Murala.ini" beside it) and files may be made in it,
// else UserMuralaFolder, made on first use. Throws EFileError when it cannot be made.
std::string ProgramFolder();

// "Murala" in the user's own data folder (Windows: %LOCALAPPDATA%; Linux: $XDG_DATA_HOME).
std::filesystem::path UserMuralaFolder();

// Whether Murala's files belong beside the program file, which lies in `folder`.
bool IsDataBesideProgram(const std::string& folder);

// Which of the two folders is the program folder; an empty `beside` is out of the question. Where
// `beside` may only be read, the list and the settings that lie there are copied to `user`, but
// never over files that are there already.
std::string ChooseProgramFolder(const std::string& beside, const std::filesystem::path& user);

// Where the program file lies once Murala is installed; fixed when it is built. On Windows the
// setup program may have chosen another folder.
std::string InstalledProgramFile();

} // namespace murala
