#include "uCloudFile.h"

#include "uPath.h"

#include <windows.h>

namespace murala
{

bool IsKeptElsewhere(std::string_view path)
try {
    constexpr DWORD recallOnOpen = 0x40000, recallOnDataAccess = 0x400000;
    const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_OFFLINE | recallOnOpen | recallOnDataAccess)) != 0;
} catch (const EFileError&) {
    return false; // no file can have such a name
}

} // namespace murala
