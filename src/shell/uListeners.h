// What many are told: list view, thumbnail view, pages, preview, tray menu.
#pragma once

#include "uWallpaper.h"

#include <utility>
#include <vector>

namespace murala
{

using TItems = std::vector<TMuWallpaper*>;

class TListener
{
public:
    virtual ~TListener() = default;

    // Rows came, went or changed places. Items that are gone are told of no more.
    virtual void RowsChanged() {}
    // The items' values changed.
    virtual void ItemsChanged(const TItems&) {}
    // Other items are selected, or another one of them has the focus.
    virtual void SelectionChanged() {}
    // Another wallpaper is the one on the desktop, or it was put there again.
    virtual void CurrentChanged() {}
    // The preview is out of date; `loadPicture`: its picture, too.
    virtual void PreviewChanged(bool /*loadPicture*/) {}
    // The user has confirmed another configuration.
    virtual void SettingsChanged() {}
    // A pause began or ended.
    virtual void PauseChanged() {}
    // Another add-on is drawn, or it is drawn otherwise.
    virtual void AddOnsChanged() {}
};

class TListeners
{
public:
    void Add(TListener& listener) { m_listeners.push_back(&listener); }
    // Also while something is told.
    void Remove(TListener& listener);

    // Tells all of them in the order in which they were added, e.g. Tell(&TListener::RowsChanged).
    template<typename... TParameters, typename... TArguments>
    void Tell(void (TListener::*what)(TParameters...), TArguments&&... arguments)
    {
        // NOLINTNEXTLINE(modernize-loop-convert): the one told may add another
        for (std::size_t i = 0; i < m_listeners.size(); ++i)
            if (m_listeners[i] != nullptr)
                (m_listeners[i]->*what)(arguments...);
    }

private:
    std::vector<TListener*> m_listeners;
};

} // namespace murala
