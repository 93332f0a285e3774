#include "uSystemCheck.h"
#include "uWideText.h"

namespace murala
{

// Since version 1903 a program's manifest makes UTF-8 its code page, which all text here is in.
std::string SystemProblem()
{
    return GetACP() == CP_UTF8 ? "" : "Murala needs Windows 10, version 1903, or a later Windows.";
}

void TellBeforeWindows(const std::string& text)
{
    MessageBoxW(nullptr, WideText(text).c_str(), L"Murala", MB_OK | MB_ICONERROR);
}

} // namespace murala
