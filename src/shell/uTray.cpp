#include "uTray.h"

#include "uText.h"

#include <algorithm>
#include <utility>

namespace murala
{

namespace
{

const TMenuTarget MainMenu[] = {TMenuAction{aOptions},
                                TMenuSeparator{},
                                TMenuBelow{TMenuBelow::Wallpapers, {}},
                                TMenuAction{aNext},
                                TMenuAction{aPrevious},
                                TMenuSeparator{},
                                TMenuAction{aTransparentIcons},
                                TMenuAction{aCalendar},
                                TMenuSeparator{},
                                TMenuAction{aConfiguration},
                                TMenuSeparator{},
                                TMenuAction{aExit}};
const TMenuTarget EndOfWallpapers[] = {TMenuSeparator{}, TMenuAction{aAdd}, TMenuAction{aOptions}};

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
    m_icon.OnMenuChosen = [this](const TMenuTarget& target) { Choose(target); };
    m_icon.OnChanged = [this] { IconChanged(); };
    m_subscription = m_core.Listeners.Listen(*this);
}

void TTray::IconChanged()
{
    TellMenu();
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
    MenuChanged();
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
    m_hasCheckMoved = true;
    if (change != TCurrentChange::Installed)
        return;
    ShowHint();
    if (m_view != nullptr)
        m_view->StartIcons();
    TellMenu();
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

// A desktop that draws the menu may not tell when it shows it.
void TTray::RefreshMenu()
{
    if (m_isMenuDirty && !m_core.Updating && TellMenu())
        m_isMenuDirty = m_hasCheckMoved = false;
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
    TMenuTarget chosen;
    {
        const TPauseScope pause(m_core.Pauses);
        m_view->BringToFront();
        MenuPopup();
        chosen = ShowMenu(cursor);
    }
    Choose(chosen);
}

TMenuTarget TTray::ShowMenu(TPoint cursor)
{
    // Messages were let through, and one of them may have taken the icon away.
    if (!m_icon.Added())
        return {};
    const TPoint place = PlaceOfMenu(cursor);
    const std::optional<TMenuTarget> shown = m_icon.Area()->ShowMenu(*this, place);
    return shown ? *shown : m_view->ShowMenu(*this, place);
}

TMenuMetrics TTray::MenuMetrics() const
{
    return m_icon.Added() ? m_icon.Area()->MenuMetrics() : TMenuMetrics();
}

TPoint TTray::PlaceOfMenu(TPoint cursor)
{
    std::optional<TRect> taskBar;
    try {
        taskBar = m_core.Services.TaskBar.GetTaskBarRect();
    } catch (const ETaskBarMissing&) {
        // At the cursor, then.
    }
    return MenuPlace(cursor, taskBar, m_core.Services.Desktop.ScreenSize(),
                     MenuHeight(Children({}), MenuMetrics()));
}

// Before the menu is seen.
void TTray::MenuPopup()
{
    const TPauseScope pause(m_core.Pauses);
    const int desktop = m_core.Services.Siblings.GetVeyraDesktop();
    if (m_isMenuDirty || desktop != m_currentDesktop) {
        ReloadForDesktop(desktop);
        MenuChanged();
    } else {
        TellMenu();
    }
}

void TTray::ReloadForDesktop(int desktop)
{
    m_storage.ReloadSettings();
    if (std::exchange(m_currentDesktop, desktop) == desktop)
        return;
    m_storage.LoadCurrent();
    ShowHint();
}

void TTray::MenuChanged()
{
    if (m_core.Updating)
        return;
    m_isMenuDirty = m_hasCheckMoved = false;
    TellMenu();
}

bool TTray::TellMenu()
{
    return !m_isDisabled && m_icon.Added() && m_icon.Area()->TellMenu(*this);
}

TMenuEntries TTray::Children(const TMenuBelow& menu)
{
    TMenuEntries entries;
    if (menu.Kind == TMenuBelow::Main) {
        Append(entries, MainMenu);
        return entries;
    }
    const int rows =
        m_core.Services.Desktop.ScreenSize().Height / std::max(1, MenuMetrics().ItemHeight);
    entries = WallpaperEntries(
        m_core.List, m_core.Selection.Current(), menu,
        {m_core.Settings.Preferences.UseWallpaperCategories, rows, !m_hasCheckMoved});
    if (menu == TMenuBelow{TMenuBelow::Wallpapers, {}})
        Append(entries, EndOfWallpapers);
    return entries;
}

void TTray::Append(TMenuEntries& entries, std::span<const TMenuTarget> targets) const
{
    for (const TMenuTarget& target : targets) {
        TMenuEntry entry{.Caption = {}, .Target = target};
        if (entry.MenuBelow() != nullptr)
            entry.Caption = "Wallpaper";
        if (const auto* id = std::get_if<TMenuAction>(&target)) {
            const TAction& action = (*m_actions)[static_cast<TActionId>(id->Id)];
            if (!action.IsOffered())
                continue;
            entry.Caption = action.Caption;
            entry.Enabled = action.Enabled();
            entry.Checked = action.Checkable && action.Checked();
        }
        entries.push_back(std::move(entry));
    }
}

void TTray::Choose(const TMenuTarget& target)
{
    if (const auto* action = std::get_if<TMenuAction>(&target))
        m_actions->Execute(static_cast<TActionId>(action->Id));
    else if (const auto* wallpaper = std::get_if<TMenuWallpaper>(&target))
        ApplyWallpaper(wallpaper->Id);
    else if (std::holds_alternative<TMenuBelow>(target))
        m_view->RestoreWindow(); // the desktop cannot show what is below it
}

// It may have been removed, or have another row, since the menu was shown.
void TTray::ApplyWallpaper(std::uint64_t id)
{
    for (int row = 0; row < m_core.List.Count(); ++row)
        if (m_core.List.Item(row).Id() == id) {
            m_applier.ApplyRow(row, TReport::MessageBox);
            return;
        }
}

} // namespace murala
