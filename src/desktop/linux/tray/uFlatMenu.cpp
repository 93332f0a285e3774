#include "uFlatMenu.h"

#include "uGLib.h"

namespace murala
{

namespace
{

// "_" before the access key, where ours have "&".
std::string WithAccessKey(const std::string& caption)
{
    std::string label;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        const bool isDoubled = i + 1 < caption.size() && caption[i + 1] == '&';
        if (caption[i] == '_')
            label += "__";
        else if (caption[i] != '&')
            label += caption[i];
        else if (isDoubled)
            label += caption[++i];
        else
            label += '_';
    }
    return label;
}

std::string Utf8(std::string text)
{
    if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != FALSE)
        return text;
    const TGText valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
    return valid.get();
}

} // namespace

TFlatMenu::TFlatMenu(const TMenuItem& menu, int deepest)
{
    Append(menu, deepest);
    m_text.shrink_to_fit();
    m_entries.shrink_to_fit();
}

void TFlatMenu::Append(const TMenuItem& item, int depth)
{
    const std::size_t i = m_entries.size();
    const auto label = static_cast<std::uint32_t>(m_text.size());
    if (i > 0 && !item.IsSeparator())
        m_text += Utf8(WithAccessKey(MenuLabel(item)));
    const auto name = static_cast<std::uint32_t>(m_text.size());
    m_text += item.Name;
    m_entries.push_back({label, name, 0, item.IsSeparator(), item.Enabled, item.Checked});
    if (depth > 0)
        for (const TMenuItem& below : item.Items)
            Append(below, depth - 1);
    m_entries[i].End = static_cast<std::uint32_t>(m_entries.size());
}

std::string_view TFlatMenu::Label(std::size_t i) const
{
    return std::string_view(m_text).substr(m_entries[i].Label,
                                           m_entries[i].Name - m_entries[i].Label);
}

std::string_view TFlatMenu::Name(std::size_t i) const
{
    const std::size_t begin = m_entries[i].Name;
    const std::size_t end = i + 1 < m_entries.size() ? m_entries[i + 1].Label : m_text.size();
    return std::string_view(m_text).substr(begin, end - begin);
}

bool TFlatMenu::LooksAs(std::size_t i, const TFlatMenu& other, std::size_t j) const
{
    const TEntry &a = m_entries[i], &b = other.m_entries[j];
    return a.IsSeparator == b.IsSeparator && a.Checked == b.Checked &&
           HasMenuBelow(i) == other.HasMenuBelow(j) && Label(i) == other.Label(j);
}

} // namespace murala
