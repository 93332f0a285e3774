#include "uTray.h"

#include "uProcessMemory.h"
#include "uText.h"

#include <algorithm>
#include <utility>

namespace murala
{

namespace
{

// The menu of more wallpapers than these is made when it is wanted, and let go soon afterwards:
// calls of RefreshMenu, five to ten seconds.
constexpr int MostWallpapersKept = 200;
constexpr int MenuRest = 2;

// The pop-up, before and behind the wallpapers' menu; ActionCount stands for a separator.
constexpr TActionId ActionsBefore[] = {aOptions};
constexpr TActionId ActionsBehind[] = {aNext,     aPrevious,   ActionCount,    aTransparentIcons,
                                       aCalendar, ActionCount, aConfiguration, ActionCount,
                                       aExit};
// At the end of the wallpapers.
constexpr TActionId ActionsOfWallpapers[] = {aAdd, aOptions};

TMenuItem Separator()
{
    TMenuItem item;
    item.Caption = SeparatorCaption;
    return item;
}

} // namespace

TTray::TTray(TCore& core, TStorage& storage, TApplier& applier)
    : m_core(core), m_storage(storage), m_applier(applier), m_icon(core.Services.Door)
{
    m_icon.OnLeftClick = [this] { LeftClick(); };
    m_icon.OnRightClick = [this](TPoint cursor) { RightClick(cursor); };
    m_icon.OnIgnoredClick = [this] {
        if (!m_isDisabled && m_view != nullptr)
            m_view->RaiseDialog();
    };
    m_icon.OnMenuOpens = [this] { MenuPopup(); };
    m_icon.OnMenuChosen = [this](const std::string& name) { MenuChosen(name); };
    m_icon.OnChanged = [this] { IconChanged(); };
    m_subscription = m_core.Listeners.Listen(*this);
}

void TTray::IconChanged()
{
    HandOverMenu();
    if (m_view != nullptr)
        m_view->TrayChanged();
}

void TTray::Connect(TTrayView& view, const TActionList& actions, TTrayFrames frames,
                    const std::vector<TTrayArea*>& others)
{
    m_view = &view;
    m_actions = &actions;
    m_newFrame = std::move(frames);
    m_icon.AddArea(m_core.Services.TrayArea);
    for (TTrayArea* area : others)
        m_icon.AddArea(*area);
    m_currentDesktop = m_core.Services.Siblings.GetVeyraDesktop();
    m_icon.SetIcon(Frame(0));
    ShowHint();
    m_icon.Add();
    m_view->StartIcons();
}

void TTray::Enable()
{
    m_isDisabled = false;
    PauseChanged();
    if (IsMenuKept())
        return RebuildTrayMenus(true);
    ReleaseMenu();
    HandOverMenu();
}

void TTray::Disable()
{
    m_isDisabled = true;
    m_icon.Enabled = false;
}

void TTray::Remove()
{
    Disable();
    m_icon.Remove();
    m_view = nullptr;
}

void TTray::PauseChanged()
{
    m_icon.Enabled = !m_isDisabled && !m_core.Pauses.IsPaused();
}

void TTray::CurrentChanged(TCurrentChange change)
{
    m_isCheckStale = !IsMenuKept() && m_icon.Added() && m_icon.Area()->IsSlowToCheck();
    if (!m_isCheckStale)
        UpdateTrayChecks(pmTrayIcon, m_core.Selection.CurrentIndex());
    if (change != TCurrentChange::Installed)
        return;
    ShowHint();
    if (m_view != nullptr)
        m_view->StartIcons();
    if (!m_isMenuReleased && !m_isCheckStale)
        HandOverMenu();
}

void TTray::TellCheck()
{
    if (!std::exchange(m_isCheckStale, false) || m_isMenuReleased)
        return;
    UpdateTrayChecks(pmTrayIcon, m_core.Selection.CurrentIndex());
    HandOverMenu();
}

void TTray::ShowHint()
{
    const TMuWallpaper* current = m_core.Selection.Current();
    m_icon.SetHint(current != nullptr
                       ? FormatText("%s (%s)", {"Murala", DisplayText(current->FileName())})
                       : "Murala");
}

const std::shared_ptr<const TIconImage>& TTray::Frame(int frame)
{
    auto& image = m_frames[static_cast<std::size_t>(frame)];
    if (!image)
        image = m_newFrame(frame);
    return image;
}

bool TTray::IconsTick()
{
    if (m_view == nullptr)
        return false;
    m_frame = (m_frame + 1) % TrayFrameCount;
    m_view->ShowIcon(*Frame(m_frame));
    m_icon.SetIcon(Frame(m_frame));
    return m_frame != 0;
}

void TTray::Refresh()
{
    m_icon.Refresh();
}

void TTray::RefreshMenu()
{
    if (!IsMenuKept()) {
        const bool isWaiting = m_isCheckStale && m_icon.Added() && m_icon.Area()->IsMenuShown();
        if (m_menuRest > 0 && !isWaiting && --m_menuRest == 0) {
            TellCheck();
            ReleaseMenu();
        }
    } else if (m_icon.Added() && m_icon.Area()->DrawsMenu()) {
        // Such a desktop may not tell when it shows the menu.
        RebuildTrayMenus(false);
    }
}

void TTray::ExplainHiding()
{
    if (std::exchange(m_core.Settings.Window.TrayExplained, true))
        return;
    m_storage.SaveSettings(TSaveFlags().set(sfWindowState));
    m_core.Tell("Murala goes on in the notification area. Click its icon there to get the window "
                "back, or right-click it for a menu.");
}

void TTray::LeftClick()
{
    if (m_core.View.IsWindowVisible())
        m_core.View.MinimiseWindow();
    else
        m_view->RestoreWindow();
}

void TTray::RightClick(TPoint cursor)
{
    if (m_isMenuOpen)
        return;
    const TValueScope open(m_isMenuOpen, true);
    m_view->BringToFront();
    MenuPopup();
    TellCheck();
    if (const TMenuItem* chosen = ShowMenu(PlaceOfMenu(cursor)))
        Choose(TMenuItem(*chosen)); // the menu may be made anew by what it does
}

const TMenuItem* TTray::ShowMenu(TPoint place)
{
    const TPauseScope pause(m_core.Pauses);
    // Making the menu lets messages through, and one of them may have taken the icon away.
    if (!m_icon.Added())
        return nullptr;
    const std::optional<const TMenuItem*> shown = m_icon.Area()->ShowMenu(pmTrayIcon, place);
    return shown ? *shown : m_view->ShowMenu(pmTrayIcon, place);
}

TMenuMetrics TTray::MenuMetrics() const
{
    return m_icon.Added() ? m_icon.Area()->MenuMetrics() : TMenuMetrics();
}

TPoint TTray::PlaceOfMenu(TPoint cursor) const
{
    std::optional<TRect> taskBar;
    try {
        taskBar = m_core.Services.TaskBar.GetTaskBarRect();
    } catch (const ETaskBarMissing&) {
        // At the cursor, then.
    }
    return MenuPlace(cursor, taskBar, m_core.Services.Desktop.ScreenSize(),
                     MenuHeight(pmTrayIcon, MenuMetrics()));
}

// Before the menu is seen.
void TTray::MenuPopup()
{
    const TPauseScope pause(m_core.Pauses);
    m_menuRest = MenuRest;
    const int desktop = m_core.Services.Siblings.GetVeyraDesktop();
    if (IsMenuStale() || desktop != m_currentDesktop) {
        ReloadForDesktop(desktop);
        RebuildTrayMenus(true);
    } else {
        UpdateActions(pmTrayIcon);
        HandOverMenu();
    }
}

bool TTray::IsMenuStale() const
{
    return m_menusDirty || m_isByCategory != m_core.Settings.Preferences.UseWallpaperCategories;
}

void TTray::ReloadForDesktop(int desktop)
{
    m_storage.ReloadSettings();
    if (std::exchange(m_currentDesktop, desktop) == desktop)
        return;
    m_storage.LoadCurrent();
    ShowHint();
}

void TTray::MenuChosen(const std::string& name)
{
    const TMenuItem* item = FindMenuItem(pmTrayIcon, name);
    if (item != nullptr && item->Action >= 0)
        Choose(TMenuItem(*item));
    else if (const int index = WallpaperIndexOf(name); index >= 0)
        ChooseWallpaper(index); // whether the menu has been released since or not
    else if (name == MoreMenuName)
        m_view->RestoreWindow(); // the desktop cannot show what is below it
}

void TTray::Choose(const TMenuItem& item)
{
    if (item.Action >= 0)
        m_actions->Execute(static_cast<TActionId>(item.Action));
    else
        ChooseWallpaperFromMenu(item);
}

void TTray::ChooseWallpaperFromMenu(const TMenuItem& item)
{
    ChooseWallpaper(WallpaperIndexOf(item));
}

void TTray::ChooseWallpaper(int index)
{
    if (index < 0 || index >= static_cast<int>(m_menuWallpapers.size()))
        return;
    // The list may have changed since the menu was made.
    const std::uint64_t wanted = m_menuWallpapers[static_cast<std::size_t>(index)];
    for (int row = 0; row < m_core.List.Count(); ++row)
        if (m_core.List.Item(row).Id() == wanted) {
            m_applier.ApplyRow(row, TReport::MessageBox);
            return;
        }
}

TMenuItem TTray::ActionItem(TActionId id) const
{
    const TAction& action = (*m_actions)[id];
    TMenuItem item;
    item.Name = action.Name;
    item.Caption = action.Caption;
    item.Action = id;
    return item;
}

TMenuItem TTray::NewPopupMenu(const TMuWallpaperList& list) const
{
    TMenuItem menu;
    const auto append = [&](TActionId id) {
        if (id == ActionCount)
            menu.Items.push_back(Separator());
        else if ((*m_actions)[id].IsOffered())
            menu.Items.push_back(ActionItem(id));
    };
    std::ranges::for_each(ActionsBefore, append);
    menu.Items.push_back(Separator());
    const TSize screen = m_core.Services.Desktop.ScreenSize();
    const TMenuMetrics metrics = MenuMetrics();
    TMenuItem wallpapers = NewWallpaperMenu(list, m_core.Selection.CurrentIndex(),
                                            {m_core.Settings.Preferences.UseWallpaperCategories,
                                             screen.Height / std::max(1, metrics.ItemHeight)});
    std::vector<TMenuItem> last;
    for (const TActionId id : ActionsOfWallpapers)
        last.push_back(ActionItem(id));
    AppendToWallpaperMenu(wallpapers, last);
    menu.Items.push_back(std::move(wallpapers));
    std::ranges::for_each(ActionsBehind, append);
    return menu;
}

void TTray::RebuildTrayMenus(bool force)
{
    if (m_core.Updating || m_actions == nullptr || (!force && !IsMenuStale()))
        return;
    pmTrayIcon = NewPopupMenu(m_core.List);
    m_menuWallpapers.clear();
    for (int i = 0; i < m_core.List.Count(); ++i)
        m_menuWallpapers.push_back(m_core.List.Item(i).Id());
    UpdateActions(pmTrayIcon);
    m_menusDirty = m_isMenuReleased = false;
    m_isByCategory = m_core.Settings.Preferences.UseWallpaperCategories;
    HandOverMenu();
}

bool TTray::IsMenuKept() const
{
    return m_core.List.Count() <= MostWallpapersKept;
}

// A desktop that draws it keeps what it was told, so that it opens at once the next time, and may
// ask for a wallpaper of it: the numbers in it are kept.
void TTray::ReleaseMenu()
{
    if (m_core.Updating || m_actions == nullptr)
        return;
    pmTrayIcon = NewPopupMenu(TMuWallpaperList());
    m_menusDirty = m_isMenuReleased = true;
    UpdateActions(pmTrayIcon);
    GiveBackFreeMemory();
}

void TTray::UpdateActions(TMenuItem& menu) const
{
    for (TMenuItem& item : menu.Items) {
        if (item.Action >= 0) {
            const TAction& action = (*m_actions)[static_cast<TActionId>(item.Action)];
            item.Enabled = action.Enabled();
            item.Checked = action.Checkable && action.Checked();
        } else if (!item.Items.empty()) {
            UpdateActions(item);
        }
    }
}

void TTray::HandOverMenu()
{
    if (m_icon.Added() && m_icon.Area()->DrawsMenu())
        m_icon.Area()->SetMenu(pmTrayIcon);
}

} // namespace murala
