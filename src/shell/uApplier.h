// Puts wallpapers on the desktop, with all that belongs to them: colour, labels, effect.
#pragma once

#include "uEffects.h"
#include "uPreviewLoader.h"
#include "uStorage.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace murala
{

class TApplier
{
public:
    TApplier(TCore& core, TStorage& storage, TPreviewLoader& preview);

    // Makes it the current wallpaper and puts it on the desktop.
    void Apply(TMuWallpaper& item);
    // Composes and installs the current wallpaper. Returns whether it is on the desktop now.
    bool ComposeWallpaper(bool startEffect, TReport report = TReport::MessageBox);

    // Does nothing with fewer than two wallpapers. Returns whether the next one is on the desktop
    // now.
    bool Next(TReport report = TReport::MessageBox);
    void Previous();
    // Selects the row and puts it on the desktop. Returns whether it is there now.
    bool ApplyRow(int row, TReport report);
    // Puts the row on the desktop, then selects it. When it cannot be shown, selection and current
    // wallpaper stay as they were, and only the status line says so.
    bool TryRow(int row);

    // Both do something only for the wallpaper that is on the desktop.
    void RefreshColor(const TMuWallpaper& item);
    void RefreshLabels(const TMuWallpaper& item);

    std::vector<std::string> ListEffects() const { return m_effects.ListEffects(); }
    // Starts the settings of the item's effect, after putting the item on the desktop if it is not
    // there.
    void RunEffectSettings(TMuWallpaper& item);

private:
    // The item becomes the current wallpaper as soon as the desktop has been given its picture.
    // `onInstalled` runs before the effect is started or ended.
    bool Compose(
        TMuWallpaper* item, bool startEffect, TReport report,
        const std::function<void()>& onInstalled = [] {});
    void ComposeItem(TMuWallpaper& item);
    void Install(const TScreenPictures& pictures, TColor color);
    void ApplyLabels(const TMuWallpaper& item);
    std::string StartEffect(const TMuWallpaper& item, bool startEffect);

    TCore& m_core;
    TStorage& m_storage;
    TPreviewLoader& m_preview;
    TEffects m_effects;
    // An effect's start lets messages through, and one of them could ask for the next wallpaper.
    bool m_isComposing = false;
    int m_installs = 0; // pictures that the desktop was given
    TDoorway m_way;
};

} // namespace murala
