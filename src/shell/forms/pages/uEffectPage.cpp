#include "uEffectPage.h"

#include "uActionBinder.h"
#include "uWindowSystem.h"

#include <algorithm>

namespace murala
{

TEffectPage::TEffectPage(wxWindow* parent, TMurala& murala)
    : TSettingsPage(parent, murala, "tsEffect")
{
}

wxSizer* TEffectPage::NewContent()
{
    m_effect = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, {}, 0,
                            wxDefaultValidator, "cbEffect");
    SetAccessibleName(*m_effect, "Effect");
    IndexOf(std::string(NoEffect));
    for (const std::string& effect : m_murala.Applier.ListEffects())
        IndexOf(effect);
    m_settings = new wxButton(this, wxID_ANY, "Settings", wxDefaultPosition, wxDefaultSize, 0,
                              wxDefaultValidator, "mulSettings");
    m_effect->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) {
        const auto chosen = static_cast<std::size_t>(m_effect->GetSelection());
        m_murala.Editor.SetEffect(Items(), m_names[chosen]);
        m_settings->Enable(m_effect->GetSelection() > 0);
    });
    m_settings->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        if (TMuWallpaper* item = m_murala.Core.Selection.Item())
            m_murala.Applier.RunEffectSettings(*item);
    });
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(m_effect, wxSizerFlags().Expand());
    content->Add(m_settings, wxSizerFlags().DoubleBorder(wxTOP));
    return content;
}

// An effect that was uninstalled stays the item's until the user chooses another.
int TEffectPage::IndexOf(const std::string& effect)
{
    const auto known = std::ranges::find(m_names, effect);
    if (known != m_names.end())
        return static_cast<int>(known - m_names.begin());
    m_names.push_back(effect);
    return m_effect->Append(ToWx(effect));
}

void TEffectPage::ShowItem(const TMuWallpaper* item)
{
    const bool isNone = item == nullptr || IsNoEffect(item->Effect);
    m_effect->SetSelection(isNone ? 0 : IndexOf(item->Effect));
    m_effect->Enable(item != nullptr);
    m_settings->Enable(item != nullptr && m_effect->GetSelection() > 0);
}

} // namespace murala
