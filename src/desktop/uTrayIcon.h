// The program's icon in the notification area.
//
// TMuTrayIcon holds the rules, a TTrayArea is one place of the desktop where icons can be seen: the
// shell's on Windows; on Linux that of the session's notifier watcher, or the one of X11, which the
// toolkit reaches.
#pragma once

#include "uBitmap.h"
#include "uDoor.h"
#include "uTrayModel.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace murala
{

struct TPoint {
    int X = 0, Y = 0;
    friend bool operator==(const TPoint&, const TPoint&) = default;
};

// The same picture in several sizes, the smallest first; the fourth byte of a pixel is its opacity,
// the colours are not multiplied with it.
using TIconImage = std::vector<TBitmap>;

// The smallest one that has at least this side, else the largest. The image is not empty.
const TBitmap& ImageOfSide(const TIconImage& image, int side);

struct TTrayLook {
    std::string Hint;
    std::shared_ptr<const TIconImage> Icon; // null or not empty
};

// What happens to the icon, told at any moment.
class TTrayEvents
{
public:
    virtual ~TTrayEvents() = default;
    virtual void TrayLeftClick() = 0;
    // The menu is wanted.
    virtual void TrayRightClick(TPoint cursor) = 0;
    // The desktop, which draws the menu itself, is about to show it.
    virtual void TrayMenuOpens() = 0;
    // The user has chosen an entry of the menu that the desktop drew.
    virtual void TrayMenuChosen(const TMenuTarget& target) = 0;
    // The area came, went or began anew.
    virtual void TrayAreaChanged() = 0;
};

// As much as every panel shows: some make it wider than the screen. A file's end stays readable.
std::string ShortHint(const std::string& hint);

enum class TTrayState { Missing, Asking, There };

struct TMenuMetrics {
    int ItemHeight = 26, SeparatorHeight = 9, BorderHeight = 3;
};

class TTrayArea
{
public:
    virtual ~TTrayArea() = default; // removes the icon

    // Before anything else; null: nothing more is told.
    virtual void Listen(TTrayEvents* events) = 0;
    // Whether an icon here can be seen by the user.
    virtual TTrayState State() = 0;
    // Whether the icon is there as it should be now.
    virtual bool Add(const TTrayLook& look) = 0;
    virtual bool Modify(const TTrayLook& look) = 0;
    virtual void Remove() = 0;

    // The menu has changed, or is new; the model lives until Remove. False where the desktop does
    // not draw the menu itself.
    virtual bool TellMenu(TTrayModel& /*model*/) { return false; }
    virtual TMenuMetrics MenuMetrics() { return {}; }
    // Shows the menu and waits until it is closed. What was chosen; nothing when this area has no
    // menus of its own.
    virtual std::optional<TMenuTarget> ShowMenu(TTrayModel& /*model*/, TPoint /*place*/)
    {
        return std::nullopt;
    }
};

// The one that the desktop has by itself.
std::unique_ptr<TTrayArea> NewTrayArea();

class TMuTrayIcon : private TTrayEvents
{
public:
    // Clicks count while this is set and the icon is there.
    bool Enabled = true;

    std::function<void()> OnLeftClick;
    std::function<void(TPoint cursor)> OnRightClick;
    // A click, or an entry chosen from the menu, while clicks do not count.
    std::function<void()> OnIgnoredClick;
    std::function<void()> OnMenuOpens;
    std::function<void(const TMenuTarget& target)> OnMenuChosen;
    // Added may have changed, or the icon may have moved to another area.
    std::function<void()> OnChanged;

    explicit TMuTrayIcon(TDoor& door) : m_door(door), m_way(door) {}
    TMuTrayIcon(const TMuTrayIcon&) = delete;
    TMuTrayIcon& operator=(const TMuTrayIcon&) = delete;
    ~TMuTrayIcon() override;

    // Areas that come first are preferred. They outlive the icon.
    void AddArea(TTrayArea& area);

    bool Added() const { return m_area != nullptr; }
    // An area is not known yet.
    bool IsAsking() const;
    TTrayArea* Area() const { return m_area; }
    const std::string& Hint() const { return m_look.Hint; }
    void SetHint(const std::string& hint);
    void SetIcon(std::shared_ptr<const TIconImage> icon);

    // Unless it is there already.
    void Add();
    // Only when it was added. Whether the area still has it.
    bool Modify();
    // When it cannot be modified - it was never added, or the shell began anew - or a better area
    // came, it is added again. From the first Add to Remove.
    void Refresh();
    void Remove();

private:
    TTrayArea* BestArea() const;
    bool IsInPlace();
    void TellChanged();
    void Count(const std::function<void()>& handle);

    // TTrayEvents.
    void TrayLeftClick() override;
    void TrayRightClick(TPoint cursor) override;
    void TrayMenuOpens() override;
    void TrayMenuChosen(const TMenuTarget& target) override;
    void TrayAreaChanged() override;

    TDoor& m_door;
    TDoorway m_way;
    std::vector<TTrayArea*> m_areas;
    TTrayArea* m_area = nullptr; // where it was added
    TTrayLook m_look;
    bool m_isWanted = false;
};

} // namespace murala
