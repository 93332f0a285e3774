#include "uLocale.h"

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
        std::string upper = text;
        CharUpperA(upper.data());
        return upper;
    }
};

} // namespace

std::unique_ptr<TLocale> NewLocale()
{
    return std::make_unique<TWindowsLocale>();
}

} // namespace murala
