#include "uFileError.h"
#include "uPath.h"
#include "uProgramFolder.h"

#include <cstdlib>

#include <windows.h>

#include <shlobj.h>

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

bool IsDataBesideProgram(const std::string& /*folder*/)
{
    return true;
}

std::filesystem::path UserMuralaFolder()
{
    std::string folder(MAX_PATH, '\0');
    if (SHGetFolderPathA(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr,
                         SHGFP_TYPE_CURRENT, folder.data()) != S_OK)
        throw EFileError("Windows does not say where the user's data folder is.");
    return NativePath(folder.c_str()) / "Murala";
}

} // namespace murala
