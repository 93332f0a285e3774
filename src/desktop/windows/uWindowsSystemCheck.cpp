#include "uSystemCheck.h"
#include "uWideText.h"

namespace murala
{

// All our text is UTF-8: the manifest makes that the code page, which Windows obeys since version
// 1903.
std::string SystemProblem()
{
    return GetACP() == CP_UTF8 ? "" : "Murala needs Windows 10, version 1903, or a later Windows.";
}

void TellBeforeWindows(const std::string& text)
{
    MessageBoxW(nullptr, WideText(text).c_str(), L"Murala", MB_OK | MB_ICONERROR);
}

} // namespace murala
