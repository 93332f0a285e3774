#include "uConfigurator.h"

#include "uItemWork.h"
#include "uItemsAt.h"
#include "uText.h"

#include <numeric>

namespace murala
{

TConfiguration TConfigurator::Present() const
{
    return {m_core.Settings.Preferences, m_core.Settings.Schedule, m_session.StartAtStartup(),
            m_session.IsShellIntegrated()};
}

void TConfigurator::Confirm(const TConfiguration& configuration)
{
    m_core.Settings.Preferences = configuration.Preferences;
    m_ticker.SetSchedule(configuration.Schedule); // saves all settings
    m_core.Listeners.Tell(&TListener::SettingsChanged);
    m_session.SetStartAtStartup(configuration.StartAtStartup);
    m_session.SetShellIntegration(configuration.ShellIntegration);
    TItems items;
    if (configuration.Retitle == TRetitle::Selected)
        items = m_core.Selection.Items();
    else if (configuration.Retitle == TRetitle::All)
        items = AllItems();
    if (!items.empty())
        m_desk.Retitle(items);
}

void TConfigurator::DeleteThumbnailCache()
{
    WorkOn(m_core, AllItems(), "Deleting Thumbnail",
           [](TMuWallpaper& item) { item.DeleteThumbnailFile(); });
}

TItems TConfigurator::AllItems() const
{
    std::vector<int> rows(static_cast<std::size_t>(m_core.List.Count()));
    std::iota(rows.begin(), rows.end(), 0);
    return ItemsAt(m_core.List, rows);
}

void TConfigurator::RefreshAllThumbnails()
{
    const int range = m_core.List.Count();
    TThumbnailRefresh refresh(m_thumbnails, m_core.List);
    {
        TWork work(m_core, range);
        while (refresh.Position() < range) {
            const std::string& title = m_core.List.Item(refresh.Position()).Title;
            if (!work.Step(refresh.Position(),
                           FormatText("Refreshing Thumbnail:%s%s", {"\n", title})) ||
                !refresh.Step())
                break;
        }
    }
    m_storage.SaveSettings(AllSaveFlags);
    m_core.Listeners.Tell(&TListener::RowsChanged);
    m_core.Listeners.Tell(&TListener::SelectionChanged);
    if (!refresh.Errors().empty())
        m_core.Tell(
            FormatText("%d thumbnails could not be made.\n\n%s",
                       {std::to_string(refresh.Errors().size()), refresh.Errors().front()}));
}

} // namespace murala
