// Text as the functions with a W at the end of their names take it.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace murala
{

// Broken bytes become the replacement character.
inline std::wstring WideText(std::string_view text)
{
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // never longer than the bytes
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size)));
    return wide;
}

inline std::string NarrowText(std::wstring_view wide)
{
    const auto size = static_cast<int>(wide.size());
    std::string text(3 * wide.size(), '\0'); // at most three bytes each
    text.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(),
                            static_cast<int>(text.size()), nullptr, nullptr)));
    return text;
}

} // namespace murala
