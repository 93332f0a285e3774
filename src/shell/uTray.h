// The tray icon and its menu: what they show, and what clicks do.
#pragma once

#include "uActionList.h"
#include "uApplier.h"
#include "uTrayIcon.h"
#include "uTrayMenu.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace murala
{

// What the tray asks of the main window.
class TTrayView
{
public:
    virtual ~TTrayView() = default;

    // Shows it, restored, in front.
    virtual void RestoreWindow() = 0;
    // A message or a dialog waits for the user, perhaps behind other windows.
    virtual void RaiseDialog() = 0;
    // Before a menu is shown, so that it closes when the user goes elsewhere.
    virtual void BringToFront() = 0;
    // Ticks of IconsTick, from now until it says that it is done.
    virtual void StartIcons() = 0;
    // The application's icon.
    virtual void ShowIcon(const TIconImage& image) = 0;
    // For areas without menus of their own; waits until it is closed. What was chosen.
    virtual TMenuTarget ShowMenu(TTrayModel& menu, TPoint place) = 0;
    // Tray::CanHide has changed.
    virtual void TrayChanged() = 0;
};

// The icon at rest, then the frames of its animation; each is made when it is first shown.
constexpr int TrayFrameCount = 3;
using TTrayFrames = std::function<std::shared_ptr<const TIconImage>(int frame)>;

class TTray : public TTrayModel, private TListener
{
public:
    TTray(TCore& core, TStorage& storage, TApplier& applier);
    TTray(const TTray&) = delete;
    TTray& operator=(const TTray&) = delete;

    // Adds the icon. All of them, and `others`, areas that the desktop's own one is preferred to,
    // live until Remove.
    void Connect(TTrayView& view, const TActionList& actions, TTrayFrames frames,
                 const std::vector<TTrayArea*>& others = {});
    // From now on clicks count, and there is a menu; after Connect.
    void Enable();
    // Takes no more clicks: the program ends.
    void Disable();
    void Remove();

    // Whether a hidden window can be reached by the icon.
    bool CanHide() const { return m_icon.Added(); }
    // Whether that may change at once.
    bool IsAsking() const { return m_icon.IsAsking(); }
    // Tells the user where a hidden window is, once for all times.
    void ExplainHiding();

    // Both every five seconds; the second one tells the desktop of a menu that has changed.
    void Refresh();
    void RefreshMenu();
    // The next frame; whether there are more.
    bool IconsTick();

    TMenuEntries Children(const TMenuBelow& menu) override;

    const std::string& Hint() const { return m_icon.Hint(); }
    bool IsEnabled() const { return m_icon.Enabled; }

private:
    // TListener.
    void RowsChanged() override { m_isMenuDirty = true; }
    void ItemsChanged(const TItems&) override { m_isMenuDirty = true; }
    void SettingsChanged() override { m_isMenuDirty = true; }
    void CurrentChanged(TCurrentChange change) override;
    void PauseChanged() override;

    // Events of the icon.
    void IconChanged();
    void LeftClick();
    void RightClick(TPoint cursor);
    void MenuPopup();
    void Choose(const TMenuTarget& target);

    void ApplyWallpaper(std::uint64_t id);
    TMenuTarget ShowMenu(TPoint cursor);
    TMenuMetrics MenuMetrics() const;
    TPoint PlaceOfMenu(TPoint cursor);
    void Append(TMenuEntries& entries, std::span<const TMenuTarget> targets) const;
    // Nothing while Updating.
    void MenuChanged();
    // Whether the desktop draws the menu itself.
    bool TellMenu();
    void ReloadForDesktop(int desktop);
    void ShowHint();
    const std::shared_ptr<const TIconImage>& Frame(int frame);

    TCore& m_core;
    TStorage& m_storage;
    TApplier& m_applier;
    TTrayView* m_view = nullptr;
    const TActionList* m_actions = nullptr;
    TMuTrayIcon m_icon;
    TTrayFrames m_newFrame;
    std::array<std::shared_ptr<const TIconImage>, TrayFrameCount> m_frames;
    int m_frame = 0;
    bool m_isMenuDirty = true;
    // Another wallpaper became the current one: its entry is checked, but what leads to it is
    // only when the menu has changed, too.
    bool m_hasCheckMoved = false;
    bool m_isDisabled = true;
    int m_currentDesktop = 0; // of Veyra, as seen before
    TSubscription m_subscription;
};

} // namespace murala
