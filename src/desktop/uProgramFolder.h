// Where the program keeps its files.
#pragma once

#include <string>

namespace murala
{

// The full path of the running program file.
std::string ProgramFile();

// With a trailing divider. Windows: the folder of the program file. Linux: that folder when
// "Murala.ini" lies in it (a portable copy), else "murala" in the user's data folder, made on first
// use.
std::string ProgramFolder();

// Where the program file lies once Murala is installed; fixed when it is built.
std::string InstalledProgramFile();

} // namespace murala
