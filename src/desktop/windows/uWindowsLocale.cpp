#include "uLocale.h"

#include "uText.h"

#include <windows.h>

namespace murala
{

namespace
{

class TWindowsLocale : public TLocale
{
public:
    int Compare(const std::string& a, const std::string& b) override
    {
        const int order =
            CompareStringA(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP, a.data(),
                           static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()));
        return order == 0 ? a.compare(b) : order - CSTR_EQUAL;
    }

    std::string UpperCase(const std::string& text) override
    {
        // An upper-case letter may have more bytes than the lower-case one: in UTF-16 both have the
        // same length. Bytes that are no text stay as they are.
        std::wstring wide(text.size(), L'\0');
        const auto size = static_cast<int>(text.size());
        const int count =
            MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), size);
        if (count == 0)
            return UpperAscii(text);
        CharUpperBuffW(wide.data(), static_cast<DWORD>(count));
        std::string upper(static_cast<std::size_t>(count) * 3, '\0');
        upper.resize(static_cast<std::size_t>(
            WideCharToMultiByte(CP_ACP, 0, wide.data(), count, upper.data(),
                                static_cast<int>(upper.size()), nullptr, nullptr)));
        return upper;
    }
};

} // namespace

std::unique_ptr<TLocale> NewLocale()
{
    return std::make_unique<TWindowsLocale>();
}

} // namespace murala
