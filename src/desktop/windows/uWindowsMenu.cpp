#include "uWindowsMenu.h"

#include "uWideText.h"
#include "uWindowsHandles.h"

#include <type_traits>

namespace murala
{

namespace
{

using TMenu = TOwned<HMENU, DestroyMenu>; // with the ones below it

UINT StateOf(const TMenuItem& item)
{
    return (item.Checked ? MFS_CHECKED : 0U) | (item.Enabled ? 0U : MFS_GRAYED);
}

// Gives every entry a number, by which it is known when it was chosen.
class TBuilder
{
public:
    TMenu Build(const TMenuItem& menu)
    {
        TMenu built(CreatePopupMenu());
        for (const TMenuItem& item : menu.Items)
            Append(built.get(), item);
        return built;
    }
    const TMenuItem* Item(UINT number) const
    {
        return number > 0 && number <= m_items.size() ? m_items[number - 1] : nullptr;
    }

private:
    void Append(HMENU menu, const TMenuItem& item)
    {
        m_items.push_back(&item);
        std::wstring caption = WideText(MenuLabel(item));
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING;
        info.fType = (item.IsSeparator() ? MFT_SEPARATOR : MFT_STRING) |
                     (item.BarBreak ? MFT_MENUBARBREAK : 0U);
        info.fState = StateOf(item);
        info.wID = static_cast<UINT>(m_items.size());
        info.dwTypeData = caption.data();
        TMenu below;
        if (!item.Items.empty()) {
            below = Build(item);
            info.fMask |= MIIM_SUBMENU;
            info.hSubMenu = below.get();
        }
        if (InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &info) != FALSE)
            static_cast<void>(below.release()); // it belongs to the menu now
    }

    std::vector<const TMenuItem*> m_items;
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

const TMenuItem* TrackMenu(const TMenuItem& menu, TPoint place, HWND owner)
{
    TBuilder builder;
    const TMenu built = builder.Build(menu);
    const BOOL number = TrackPopupMenu(built.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                       place.X, place.Y, 0, owner, nullptr);
    return builder.Item(static_cast<UINT>(number));
}

} // namespace murala
