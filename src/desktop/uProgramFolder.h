// What the program was started as, and where it keeps its files.
#pragma once

#include <string>
#include <vector>

namespace murala
{

// The full path of the running program file.
std::string ProgramFile();

// The arguments behind the program's name, byte for byte: a name that the present locale cannot
// spell is still a file's name.
std::vector<std::string> ProgramArguments();

// With a trailing divider. Windows: the folder of the program file. Linux: that folder when
// "Murala.ini" lies in it (a portable copy), else "murala" in the user's data folder, made on first
// use.
std::string ProgramFolder();

// Where the program file lies once Murala is installed; fixed when it is built.
std::string InstalledProgramFile();

} // namespace murala
