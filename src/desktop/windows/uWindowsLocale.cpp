#include "uLocale.h"

#include "uText.h"

#include <windows.h>

namespace murala
{

namespace
{

// Writes the sort key and returns its size, 0 when it does not fit. Without room it writes nothing
// and returns the size that the key needs.
int MapToKey(const std::string& text, char* key, int room)
{
    return LCMapStringA(LOCALE_USER_DEFAULT, LCMAP_SORTKEY | LOCALE_USE_CP_ACP, text.data(),
                        static_cast<int>(text.size()), key, room);
}

class TWindowsLocale : public TLocale
{
public:
    std::string SortKey(const std::string& text) override
    {
        std::string key(text.size() * 6 + 16, '\0'); // enough for most texts
        int size = MapToKey(text, key.data(), static_cast<int>(key.size()));
        if (size == 0) {
            key.resize(static_cast<std::size_t>(MapToKey(text, nullptr, 0)));
            size = MapToKey(text, key.data(), static_cast<int>(key.size()));
        }
        key.resize(static_cast<std::size_t>(size));
        return key; // the empty one of an empty text, which comes first
    }

    std::string UpperCase(const std::string& text) override
    {
        // By way of UTF-16, where an upper-case letter is as long as the lower-case one; in UTF-8
        // it may have more bytes. Bytes that are no text stay as they are.
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
