#include "uItemEditor.h"

#include "uDisplayMode.h"
#include "uItemWork.h"
#include "uTint.h"

#include <algorithm>
#include <iterator>

namespace murala
{

void TItemEditor::Tell(const TItems& items)
{
    m_core.Listeners.Tell(&TListener::ItemsChanged, items);
    if (std::ranges::find(items, m_core.Selection.Item()) != items.end())
        m_core.Listeners.Tell(&TListener::PreviewChanged, false);
}

// Reading a picture's size from its file takes a moment. The user can end the work; the items that
// it did not reach keep their mode.
void TItemEditor::ChangeModes(const TItems& items, const TModeChange& change)
{
    WorkOn(m_core, items, "Changing Display Mode", change);
    Tell(items);
    m_storage.SaveList();
}

void TItemEditor::SetDisplayMode(const TItems& items, TDisplayMode mode)
{
    const TSize screen = m_core.Services.Desktop.ScreenSize();
    std::vector<std::string_view> texts;
    ChangeModes(items, [&](TMuWallpaper& item) {
        item.DisplayMode = mode;
        const TSize image = HasLimit(mode) ? m_preview.SizeOf(item) : TSize();
        for (const std::string_view text : CheckDisplayMode(item.DisplayMode, image, screen))
            if (std::ranges::find(texts, text) == texts.end())
                texts.push_back(text);
    });
    for (const std::string_view text : texts)
        m_core.Tell(std::string(text));
}

void TItemEditor::StepDisplayMode(const TItems& items)
{
    const TSize screen = m_core.Services.Desktop.ScreenSize();
    ChangeModes(items, [&](TMuWallpaper& item) {
        TDisplayMode& mode = item.DisplayMode;
        const bool isLimited = HasLimit(mode) || HasLimit(NextDisplayMode(mode, {}, screen));
        mode = NextDisplayMode(mode, isLimited ? m_preview.SizeOf(item) : TSize(), screen);
    });
}

void TItemEditor::SetGammaStyle(const TItems& items, TGammaStyle style)
{
    TItems changed;
    std::ranges::copy_if(items, std::back_inserter(changed),
                         [style](const TMuWallpaper* item) { return item->GammaStyle != style; });
    if (changed.empty())
        return;
    for (TMuWallpaper* item : changed) {
        item->GammaStyle = style;
        if (style == gsNone) {
            item->SetStartTint({});
            item->SetEndTint({});
        }
    }
    Tell(changed);
    m_storage.SaveList();
}

void TItemEditor::SetTint(const TItems& items, TTintEnd end, TChannel channel, int value)
{
    for (TMuWallpaper* item : items) {
        if (end == TTintEnd::Start)
            item->SetStartTint(WithChannel(item->StartTint(), channel, value));
        else
            item->SetEndTint(WithChannel(item->EndTint(), channel, value));
    }
    Tell(items);
}

void TItemEditor::SetDesktopColor(const TItems& items, TColor color)
{
    for (TMuWallpaper* item : items) {
        item->SetDesktopColor(color);
        m_applier.RefreshColor(*item);
    }
    Tell(items);
    m_storage.SaveList();
}

void TItemEditor::ToggleTransparentIcons(const TItems& items)
{
    if (items.empty() || m_core.Updating)
        return;
    const TMuWallpaper* checked = m_core.Selection.Item(); // the item whose state the action shows
    if (std::ranges::find(items, checked) == items.end())
        checked = items.front();
    const bool transparent = !checked->TransparentIcons;
    for (TMuWallpaper* item : items)
        item->TransparentIcons = transparent;
    m_core.Listeners.Tell(&TListener::ItemsChanged, items);
    m_storage.SaveList();
    for (const TMuWallpaper* item : items)
        m_applier.RefreshLabels(*item);
}

void TItemEditor::SetEffect(const TItems& items, const std::string& effect)
{
    TItems changed;
    std::ranges::copy_if(items, std::back_inserter(changed),
                         [&](const TMuWallpaper* item) { return item->Effect != effect; });
    if (changed.empty())
        return;
    for (TMuWallpaper* item : changed)
        item->Effect = effect;
    m_core.Listeners.Tell(&TListener::ItemsChanged, changed);
    m_storage.SaveList();
}

} // namespace murala
