#include "uGLib.h"
#include "uLocale.h"

#include <clocale>
#include <cstring>

namespace murala
{

namespace
{

struct TLocaleFree {
    void operator()(locale_t locale) const noexcept { freelocale(locale); }
};

// Only these: the language of another category may not be installed.
constexpr int Categories = LC_CTYPE_MASK | LC_COLLATE_MASK;

// A locale object of our own: the global one is chosen by the toolkit.
class TLinuxLocale : public TLocale
{
public:
    TLinuxLocale() : m_locale(newlocale(Categories, "", nullptr))
    {
        if (!m_locale)
            m_locale.reset(newlocale(Categories, "C.UTF-8", nullptr));
    }

    std::string SortKey(const std::string& text) override
    {
        if (!m_locale)
            return text;
        // Five bytes a character are what most languages need.
        std::string key(text.size() * 5 + 16, '\0');
        const auto transform = [&] {
            return strxfrm_l(key.data(), text.c_str(), key.size(), m_locale.get());
        };
        if (const std::size_t size = transform(); size >= key.size()) {
            key.resize(size + 1);
            transform();
        }
        key.resize(std::strlen(key.c_str()));
        return key;
    }

    // Character by character: no character becomes two, and broken bytes stay.
    std::string UpperCase(const std::string& text) override
    {
        std::string upper;
        for (std::size_t i = 0; i < text.size();) {
            const gunichar character =
                g_utf8_get_char_validated(text.c_str() + i, static_cast<gssize>(text.size() - i));
            if (character >= static_cast<gunichar>(-2)) {
                upper += text[i++];
                continue;
            }
            char bytes[6];
            upper.append(bytes, static_cast<std::size_t>(
                                    g_unichar_to_utf8(g_unichar_toupper(character), bytes)));
            i += static_cast<std::size_t>(g_utf8_skip[static_cast<unsigned char>(text[i])]);
        }
        return upper;
    }

private:
    std::unique_ptr<std::remove_pointer_t<locale_t>, TLocaleFree> m_locale;
};

} // namespace

std::unique_ptr<TLocale> NewLocale()
{
    return std::make_unique<TLinuxLocale>();
}

} // namespace murala
