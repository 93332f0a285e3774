// What many are told: list view, thumbnail view, pages, preview, tray menu.
#pragma once

#include "uWallpaper.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace murala
{

using TItems = std::vector<TMuWallpaper*>;

// What has become of the wallpaper that counts as the one on the desktop.
enum class TCurrentChange {
    Chosen,    // another one counts, but the desktop shows what it showed
    Installed, // the desktop was given its picture, perhaps again
};

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
    // Once a change.
    virtual void CurrentChanged(TCurrentChange) {}
    // The preview is out of date; `loadPicture`: its picture, too.
    virtual void PreviewChanged(bool /*loadPicture*/) {}
    // The user has confirmed another configuration.
    virtual void SettingsChanged() {}
    // A pause began or ended.
    virtual void PauseChanged() {}
    // Another add-on is drawn, or it is drawn otherwise.
    virtual void AddOnsChanged() {}
};

// A listener keeps it, as its last member, and is told as long as it does.
using TSubscription = std::shared_ptr<const void>;

class TListeners
{
public:
    // Gets what a listener throws; the others are told all the same.
    std::function<void(const std::exception& error)> OnFailure;

    [[nodiscard]] TSubscription Listen(TListener& listener);

    // Tells all of them in the order in which they came, e.g. Tell(&TListener::RowsChanged). The
    // one told may let others listen, or end its own listening or that of others.
    template<typename... TParameters, typename... TArguments>
    void Tell(void (TListener::*what)(TParameters...), const TArguments&... arguments)
    {
        // NOLINTNEXTLINE(modernize-loop-convert): the one told may add another
        for (std::size_t i = 0; i < m_listeners.size(); ++i)
            if (const auto listener = m_listeners[i].lock())
                Try([&] { ((*listener).*what)(arguments...); });
    }

private:
    void Try(const std::function<void()>& tell) const noexcept;

    std::vector<std::weak_ptr<TListener>> m_listeners;
};

} // namespace murala
