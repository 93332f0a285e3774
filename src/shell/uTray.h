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
    // For areas without menus of their own. The chosen entry, null for none.
    virtual const TMenuItem* ShowMenu(const TMenuItem& menu, TPoint place) = 0;
    // Tray::CanHide has changed.
    virtual void TrayChanged() = 0;
};

// The icon at rest, then the frames of its animation; each is made when it is first shown.
constexpr int TrayFrameCount = 3;
using TTrayFrames = std::function<std::shared_ptr<const TIconImage>(int frame)>;

class TTray : private TListener
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

    // Both every five seconds; the second one has the menu made anew, or lets a large one go.
    void Refresh();
    void RefreshMenu();
    // The next frame; whether there are more.
    bool IconsTick();

    const TMenuItem& Menu() const { return pmTrayIcon; }
    const std::string& Hint() const { return m_icon.Hint(); }
    bool IsEnabled() const { return m_icon.Enabled; }
    // Nothing while Updating; without `force` nothing when it is as it should be.
    void RebuildTrayMenus(bool force);
    void ChooseWallpaperFromMenu(const TMenuItem& item);

private:
    // TListener.
    void RowsChanged() override { m_menusDirty = true; }
    void ItemsChanged(const TItems&) override { m_menusDirty = true; }
    void CurrentChanged(TCurrentChange change) override;
    void PauseChanged() override;

    // Events of the icon.
    void IconChanged();
    void LeftClick();
    void RightClick(TPoint cursor);
    void MenuPopup();
    void MenuChosen(const std::string& name);

    void Choose(const TMenuItem& item);
    void ChooseWallpaper(int index);
    const TMenuItem* ShowMenu(TPoint place);
    TMenuMetrics MenuMetrics() const;
    TPoint PlaceOfMenu(TPoint cursor) const;
    TMenuItem ActionItem(TActionId id) const;
    TMenuItem NewPopupMenu(const TMuWallpaperList& list) const;
    void UpdateActions(TMenuItem& menu) const;
    bool IsMenuStale() const;
    bool IsMenuKept() const;
    void ReleaseMenu();
    void ReloadForDesktop(int desktop);
    void ShowHint();
    // For a desktop that draws the menu itself.
    void HandOverMenu();
    void TellCheck();
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
    TMenuItem pmTrayIcon;
    std::vector<std::uint64_t> m_menuWallpapers; // their numbers, by the indexes in the menu
    bool m_menusDirty = true;
    bool m_isByCategory = false; // the menu
    bool m_isMenuReleased = false;
    bool m_isCheckStale = false; // where the desktop draws the menu
    bool m_isMenuOpen = false;
    bool m_isDisabled = true;
    int m_menuRest = 0;       // until it is released
    int m_currentDesktop = 0; // of Veyra, as seen before
    TSubscription m_subscription;
};

} // namespace murala
