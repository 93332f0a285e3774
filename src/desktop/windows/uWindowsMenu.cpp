#include "uWindowsMenu.h"

#include "uWideText.h"
#include "uWindowsHandles.h"

#include <string>
#include <vector>

namespace murala
{

namespace
{

using TMenu = TOwned<HMENU, DestroyMenu>; // destroys the menus below it, too

// Gives every entry a number: that is how Windows tells which one was chosen.
class TBuilder
{
public:
    explicit TBuilder(TTrayModel& model) : m_model(model) {}

    TMenu Build(const TMenuBelow& menu)
    {
        TMenu built(CreatePopupMenu());
        for (const TMenuEntry& entry : m_model.Children(menu))
            Append(built.get(), entry);
        return built;
    }
    TMenuTarget Target(UINT number) const
    {
        return number > 0 && number <= m_targets.size() ? m_targets[number - 1] : TMenuTarget();
    }

private:
    void Append(HMENU menu, const TMenuEntry& entry)
    {
        m_targets.push_back(entry.Target);
        std::wstring caption = WideText(entry.Caption);
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING;
        info.fType = (entry.IsSeparator() ? MFT_SEPARATOR : MFT_STRING) |
                     (entry.BarBreak ? MFT_MENUBARBREAK : 0U);
        info.fState = (entry.Checked ? MFS_CHECKED : 0U) | (entry.Enabled ? 0U : MFS_GRAYED);
        info.wID = static_cast<UINT>(m_targets.size());
        info.dwTypeData = caption.data();
        TMenu below;
        if (entry.MenuBelow() != nullptr) {
            below = Build(*entry.MenuBelow());
            info.fMask |= MIIM_SUBMENU;
            info.hSubMenu = below.get();
        }
        if (InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &info) != FALSE)
            static_cast<void>(below.release()); // it belongs to the menu now
    }

    TTrayModel& m_model;
    std::vector<TMenuTarget> m_targets;
};

} // namespace

TMenuMetrics SystemMenuMetrics()
{
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    if (SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) == FALSE)
        return {};
    return {metrics.iMenuHeight, metrics.iMenuHeight / 2, GetSystemMetrics(SM_CYFIXEDFRAME)};
}

TMenuTarget TrackMenu(TTrayModel& model, TPoint place, HWND owner)
{
    TBuilder builder(model);
    const TMenu built = builder.Build({});
    const BOOL number = TrackPopupMenu(built.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                       place.X, place.Y, 0, owner, nullptr);
    return builder.Target(static_cast<UINT>(number));
}

} // namespace murala
