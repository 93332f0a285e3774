// Changes the settings of wallpapers: display mode, tint, colour, labels, effect.
#pragma once

#include "uApplier.h"
#include "uPreviewLoader.h"
#include "uStorage.h"

#include <functional>
#include <string>
#include <vector>

namespace murala
{

// Which end of a tint is meant.
enum class TTintEnd { Start, End };

class TItemEditor
{
public:
    TItemEditor(TCore& core, TStorage& storage, TApplier& applier, TPreviewLoader& preview)
        : m_core(core), m_storage(storage), m_applier(applier), m_preview(preview)
    {
    }

    // Where an item's picture is too large for the mode, the item gets another one, and a message
    // says so (each text once, however many items it concerns).
    void SetDisplayMode(const TItems& items, TDisplayMode mode);
    void StepDisplayMode(const TItems& items);
    void SetGammaStyle(const TItems& items, TGammaStyle style);
    // Changes the items only. Save writes the list when the user lets the slider go.
    void SetTint(const TItems& items, TTintEnd end, TChannel channel, int value);
    void Save() { m_storage.SaveList(); }
    void SetDesktopColor(const TItems& items, TColor color);
    // All of them get the opposite of what the first one has.
    void ToggleTransparentIcons(const TItems& items);
    void SetEffect(const TItems& items, const std::string& effect);

private:
    using TModeChange = std::function<void(TMuWallpaper& item)>;
    void ChangeModes(const TItems& items, const TModeChange& change);
    // Tells of the items, and has the preview drawn again when it shows one of them.
    void Tell(const TItems& items);

    TCore& m_core;
    TStorage& m_storage;
    TApplier& m_applier;
    TPreviewLoader& m_preview;
};

} // namespace murala
