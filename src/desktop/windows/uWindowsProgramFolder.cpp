#include "uPath.h"
#include "uProgramFolder.h"

#include <cstdlib>

#include <windows.h>

namespace murala
{

std::string ProgramFile()
{
    std::string file(MAX_PATH, '\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameA(nullptr, file.data(), static_cast<DWORD>(file.size()));
        if (length < file.size()) {
            file.resize(length);
            return file;
        }
        file.resize(file.size() * 2);
    }
}

std::vector<std::string> ProgramArguments()
{
    return {__argv + 1, __argv + __argc};
}

std::string ProgramFolder()
{
    return FolderPart(ProgramFile());
}

} // namespace murala
