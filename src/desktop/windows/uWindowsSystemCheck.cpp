#include "uSystemCheck.h"
#include "uWideText.h"
#include "uWindowsHandles.h"

namespace murala
{

// All our text is UTF-8: the manifest makes that the code page, which Windows obeys since version
// 1903.
std::string SystemProblem()
{
    return GetACP() == CP_UTF8 ? "" : "Murala needs Windows 10, version 1903, or a later Windows.";
}

namespace
{

bool IsFileOrPipe(HANDLE handle)
{
    const DWORD type = GetFileType(handle);
    return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE;
}

// Its parent's, where it has none of its own; Wine gives it that from the start.
bool HasConsole()
{
    return AttachConsole(ATTACH_PARENT_PROCESS) || GetLastError() == ERROR_ACCESS_DENIED;
}

bool WriteAll(HANDLE handle, const std::string& text)
{
    DWORD written = 0;
    return WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) !=
               0 &&
           written == text.size();
}

} // namespace

bool PrintAnswer(const std::string& text)
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (IsFileOrPipe(output))
        return WriteAll(output, text);
    if (HasConsole()) {
        const THandle console(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                          FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
        // The shell did not wait for the program: its prompt stands in the line already.
        if (WriteAll(console.get(), "\n" + text))
            return true;
    }
    return MessageBoxW(nullptr, WideText(text).c_str(), L"Murala", MB_OK | MB_ICONINFORMATION) != 0;
}

void TellBeforeWindows(const std::string& text)
{
    MessageBoxW(nullptr, WideText(text).c_str(), L"Murala", MB_OK | MB_ICONERROR);
}

} // namespace murala
